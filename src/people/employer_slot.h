#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "editing/name_search.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/text_box.h"

namespace people {

class EmployerSlots;

// One employer of a person, and the plan that he holds through this employer.
class EmployerSlot : public editing::SearchedField, private editing::Rules {
 public:
  struct Parts {
    forms::TextBox& employer;
    forms::Label& employer_details;
    forms::TextBox& plan;
    forms::Label& plan_details;
    forms::Button& link_employer;
    forms::Label& link;  // hidden; of the record
  };

  EmployerSlot(const session::ScreenContext& context, EmployerSlots& slots, std::size_t index, const Parts& parts);

  // "Employer 1"
  const std::string& SlotName() const { return name_; }
  // Of employer and plan; 0 for none.
  std::int32_t Link() const;
  // Shows what the current row of `ELTable`, joined to what it names, tells; nothing without one.
  void Show(const session::Recordset* row);
  // The statement for these rows. The link is its first column.
  static data::Sql Rows(const data::Statements& statements, const std::vector<std::int32_t>& links);

  void EditEmployer();
  void UnLink();
  void LinkPlan();
  void EditPlan();

  std::string_view Word() const override { return "employer"; }
  std::string Prompt() const override;
  std::string HowToAdd() const override { return "Press [Enter]\r\nto add it."; }
  bool Drops() const override { return Link() == 0; }
  std::vector<data::Sql> Search(std::string_view typed) const override;
  bool SameName(std::string_view name, std::string_view typed) const override;
  std::int32_t Current() const override { return employer_; }
  void Take(std::int32_t id, const std::string& name) override;
  bool Enter(const std::string& typed) override;
  bool Edit() override;
  bool Remove() override;
  bool PickFromList() override;

 private:
  bool MayLink() const;
  bool MayEdit(std::string_view what) const;
  // His name, or the slot's where the link leads to none.
  std::string ToldEmployer() const;
  // 0 when none was chosen, or entered.
  std::int32_t ChooseEmployer();
  std::int32_t NewEmployer(const std::string& name);
  // False when another slot names the link already; the person is told.
  bool Set(std::int32_t link);
  bool LinkEmployer(std::int32_t employer);
  // Whether what the person holds may give way to the link: no coverage ends without a word.
  bool MayHold(std::int32_t link) const;
  bool Replace();
  void Clear();

  EmployerSlots& slots_;
  std::string number_;
  std::string name_;
  Parts parts_;
  // Of what is shown; 0 for none.
  std::int32_t employer_ = 0;
  std::int32_t carrier_ = 0;
  std::int32_t plan_ = 0;
  std::string employer_name_;
};

}  // namespace people
