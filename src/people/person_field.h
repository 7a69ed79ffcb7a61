#pragma once

#include <string>
#include <vector>

#include "editing/name_search.h"
#include "forms/label.h"

namespace people {

// What makes one field of persons differ from another.
struct PersonKind {
  std::string_view word;        // "Referral"
  std::string_view whose;       // "this patient's", in the confirmations
  std::string_view right;       // to change it
  std::string_view right_what;  // for the refusal: "referral names"
  data::Words type;             // the flag of the persons to choose from
  session::RecordKind record;   // what their editing screen is opened for
  session::LookUpListTypes list;
};
// A person's referral source and his provider; `whose` they are in the confirmations.
constexpr PersonKind ReferralOf(std::string_view whose) {
  return {.word = "Referral",
          .whose = whose,
          .right = "CHANGE-REF-NAME",
          .right_what = "referral names",
          .type = "pTypRef",
          .record = session::RecordKind::Referral,
          .list = session::lulReferral};
}
constexpr PersonKind ProviderOf(std::string_view whose) {
  return {.word = "Provider",
          .whose = whose,
          .right = "CHANGE-PRO-NAME",
          .right_what = "provider names",
          .type = "pTypDoc",
          .record = session::RecordKind::Provider,
          .list = session::lulProvider};
}

// A field that shows the name of a person whose ID the record keeps: a referral, a provider.
class PersonField : public editing::SearchedField, private editing::Rules {
 public:
  // The screen's hidden label holds the person's ID for the record.
  PersonField(const session::ScreenContext& context, const PersonKind& kind, forms::TextBox& field,
              forms::Button& list_button, forms::Label& id);

  // For the field help: how a new person is entered here.
  std::string Help() const;
  // Shows the name of the person whose ID the label holds. Throws session::DatabaseError.
  void Show();

  std::string_view Word() const override { return kind_.word; }
  std::vector<data::Sql> Search(std::string_view typed) const override;
  bool SameName(std::string_view name, std::string_view typed) const override;
  std::int32_t Current() const override;
  void Take(std::int32_t id, const std::string& name) override;
  bool Enter(const std::string& typed) override;
  bool Edit() override;
  bool Remove() override;
  bool PickFromList() override;

 private:
  bool MayChange() const;
  // True when he was saved, and is shown.
  bool EditPerson(const session::Opening& opening);
  void Set(std::int32_t id, const std::string& name);

  PersonKind kind_;
  forms::Label& id_;
};

}  // namespace people
