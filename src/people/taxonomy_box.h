#pragma once

#include <string>

#include "forms/list_box.h"

namespace people {

// What a provider is to the health plans, chosen by its name; a record keeps the code of the provider taxonomy.
class TaxonomyBox : public forms::ComboBox {
 public:
  TaxonomyBox();

  // "1223G0001X". A code that the list does not have is shown by itself and stays until another one is chosen.
  std::string FieldText() const override;
  void SetFieldText(std::string code) override;

 protected:
  // Delete leaves none chosen.
  bool OnKey(forms::Key key) override;
};

}  // namespace people
