#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "data/families.h"
#include "data/record_binding.h"
#include "editing/kept_layout.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/user_control.h"

namespace people {

// The family of the person on a screen, and who comes to it, leaves it and heads it. What is changed here is written at
// once; what else has changed on the screen is saved first.
class FamilyMembers : public forms::UserControl, private editing::Rules {
 public:
  // The screen binds the label to the head in the person's record. Both outlive this.
  FamilyMembers(const session::ScreenContext& context, data::RecordBinding& person, forms::Label& head);

  forms::Grid FamilyGrid;
  forms::Button cmdAddMember;
  forms::Button cmdDetachMember;
  forms::Button cmdMakeHead;

  // The screen's own: whether anything waits to be saved, the save, its hold on the person, and what follows when his
  // family was changed, or is another than the screen showed.
  std::function<bool()> Unsaved;
  std::function<bool()> Save;
  std::function<void()> RequireHold;
  std::function<void(bool written)> FamilyChanged;

  // The family of the person who was read. Throws session::DatabaseError.
  void Show();
  void Keep() { layout_.Keep(); }
  // Somebody besides the head.
  bool Any() const { return members_.size() > 1; }

 protected:
  std::string Scope() const override { return {}; }
  void OnLoad() override;

 private:
  struct Member {
    std::int32_t id = 0;
    std::string name;
  };

  void AddRow(forms::TableRows& table, const session::Recordset& row);
  const Member* Current() const;
  std::int32_t HeadId() const;
  std::string HeadName() const;
  void ShowCommands();
  // Whether the family can be changed now: unsaved changes are saved first if the person wants that.
  bool Ready();
  void AddMember();
  // Whom the person wants in the family; 0 for nobody.
  std::int32_t ChooseMember();
  void Join(std::int32_t person);
  void Detach(const Member& member);
  void MakeHead(const Member& member);
  // Only while the member's head is still the one whom the person has seen.
  using Plan = std::function<data::Families::Change(const data::Families&)>;
  void Change(std::int32_t member, std::int32_t seen_head, const Plan& plan);
  // With all records held that it writes, but for the screen's own; the host hears of each. Throws editing::Refusal.
  void Write(std::int32_t member, std::int32_t seen_head, const Plan& plan) const;
  void RequireRow(std::int32_t person) const;
  void RequireFamily(std::int32_t member, std::int32_t seen_head) const;
  void Reread();

  data::RecordBinding& person_;
  forms::Label& head_;
  editing::KeptLayout layout_{context_.session, FamilyGrid};
  std::vector<Member> members_;  // by row; the head first
};

}  // namespace people
