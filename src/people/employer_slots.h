#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/record_binding.h"
#include "editing/name_search.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/user_control.h"
#include "people/employer_slot.h"

namespace people {

// The employers that a person works for, and the plan that he holds through each. What is linked is written when the
// screen saves; his coverage follows.
class EmployerSlots : public forms::UserControl, private editing::Rules {
 public:
  static constexpr std::size_t kCount = 4;

  // Binds the places to the person's record, which outlives it.
  EmployerSlots(const session::ScreenContext& context, data::RecordBinding& person);

  std::array<forms::Label, kCount> lblEmployer;
  std::array<forms::TextBox, kCount> EmpLabel1;  // employer and plan
  std::array<forms::Label, kCount> EmpLabel2;    // the employer's address and phone
  std::array<forms::Label, kCount> lblPlan;
  std::array<forms::TextBox, kCount> PlanLabel1;  // the plan
  std::array<forms::Label, kCount> PlanLabel2;    // its carrier and group number
  std::array<forms::Button, kCount> imaLinkEmp;
  std::array<forms::Button, kCount> imaUnLinkEmp;
  std::array<forms::Button, kCount> ImaEditEmp;
  std::array<forms::Button, kCount> imaLinkPlan;
  std::array<forms::Button, kCount> ImaEditPlan;

  // The screen's own: the person's name, and the save that un-linking asks for.
  std::function<std::string()> Whose;
  std::function<bool()> Save;

  // Each slot takes its employer by name.
  void Attach(editing::NameSearch& search);
  // The record was read.
  void Read();
  // Stored values took the place of what was linked here.
  void ShowTaken();
  // Another link stands in a slot than was read.
  bool Relinked() const;
  // Before the record is written: what the person holds, and who is covered through it, follows. Throws
  // session::DatabaseError. Returns what the logs are told when the record is written; then comes `Followed`.
  std::vector<session::LogEntry> Follow() const;
  void Followed();

  // For the slots: the one that names a link already; nullptr for none.
  const EmployerSlot* Naming(std::int32_t link) const;
  // The person's ID; 0 for a new one.
  std::int32_t Person() const { return person_.Id(); }
  // Whether the stored link in the slot's place is a plan. Throws session::DatabaseError.
  bool StoresPlan(const EmployerSlot& slot) const;
  // All slots show what their labels hold.
  void Show();
  // The same after plans were un-linked elsewhere, and persons with them.
  void ShowMoved();

 protected:
  std::string Scope() const override { return {}; }

 private:
  EmployerSlot Slot(std::size_t index);
  void Register(std::size_t index);
  void NameControls(std::size_t index);
  void Wire(std::size_t index);
  std::array<std::int32_t, kCount> Stored() const;

  data::RecordBinding& person_;
  std::array<forms::Label, kCount> links_;  // hidden
  std::array<std::int32_t, kCount> read_{};
  std::array<EmployerSlot, kCount> slots_;
};

}  // namespace people
