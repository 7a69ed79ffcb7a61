#include "people/employer_slots.h"

#include <algorithm>

#include "data/employer_places.h"
#include "data/literal.h"
#include "data/plan_links.h"

namespace people {
namespace {

std::int32_t LinkIn(const forms::Label& label) {
  return session::ToId(session::Value(label.Caption.get()));
}

void Describe(forms::Button& button, const std::string& what, const std::string& tip, const std::string& key) {
  button.AccessibleName = what;
  button.ToolTip = tip + (key.empty() ? "" : " (" + key + ")");
  button.TabStop = key.empty();
}

}  // namespace

EmployerSlots::EmployerSlots(const session::ScreenContext& context, data::RecordBinding& person)
    : Rules(context), person_(person), slots_{Slot(0), Slot(1), Slot(2), Slot(3)} {
  for (std::size_t i = 0; i < kCount; ++i) {
    person_.Bind(links_.at(i), data::kEmployerPlaces.at(i));
    links_.at(i).Visible = false;
    Register(i);
    NameControls(i);
    Wire(i);
  }
}

void EmployerSlots::Wire(std::size_t index) {
  EmployerSlot& slot = slots_.at(index);
  imaUnLinkEmp.at(index).Click = [&slot] { slot.UnLink(); };
  ImaEditEmp.at(index).Click = [&slot] { slot.EditEmployer(); };
  imaLinkPlan.at(index).Click = [&slot] { slot.LinkPlan(); };
  ImaEditPlan.at(index).Click = [&slot] { slot.EditPlan(); };
  PlanLabel1.at(index).ReadOnly = true;
  PlanLabel1.at(index).KeyPress = [this](char32_t) {
    Tell("Please press F9 or click button.");
    return char32_t{0};
  };
  PlanLabel1.at(index).KeyDown = [&slot](forms::Key key) {
    if (key == forms::Key::F9) {
      slot.LinkPlan();
    } else if (key == forms::Key::Insert) {
      slot.EditPlan();
    }
    return key == forms::Key::F9 || key == forms::Key::Insert;
  };
}

EmployerSlot EmployerSlots::Slot(std::size_t index) {
  return {context_,
          *this,
          index,
          {.employer = EmpLabel1.at(index),
           .employer_details = EmpLabel2.at(index),
           .plan = PlanLabel1.at(index),
           .plan_details = PlanLabel2.at(index),
           .link_employer = imaLinkEmp.at(index),
           .link = links_.at(index)}};
}

void EmployerSlots::NameControls(std::size_t index) {
  const std::string number = std::to_string(index + 1);
  lblEmployer.at(index).Caption = "Employer &" + number;
  EmpLabel1.at(index).Heading = &lblEmployer.at(index);
  EmpLabel1.at(index).ToolTip = "Type name of employer " + number;
  lblPlan.at(index).Caption = "Plan";
  PlanLabel1.at(index).AccessibleName = "Insurance plan of employer " + number;
  imaLinkEmp.at(index).Caption = "...";
  imaUnLinkEmp.at(index).Caption = "Un-link";
  ImaEditEmp.at(index).Caption = "Edit";
  imaLinkPlan.at(index).Caption = "...";
  ImaEditPlan.at(index).Caption = "Edit";
  Describe(imaLinkEmp.at(index), "Link employer " + number, "Link an employer", "F9");
  Describe(imaUnLinkEmp.at(index), "Un-link employer " + number, "Un-link the employer", "Delete");
  Describe(ImaEditEmp.at(index), "Edit employer " + number, "Edit the employer", "Insert");
  Describe(imaLinkPlan.at(index), "Link plan of employer " + number, "Link an insurance plan", "F9");
  Describe(ImaEditPlan.at(index), "Edit plan of employer " + number, "Edit the insurance plan", "Insert");
}

void EmployerSlots::Register(std::size_t index) {
  const std::string place = "(" + std::to_string(index) + ")";
  Add("lblEmployer" + place, lblEmployer.at(index));
  Add("EmpLabel1" + place, EmpLabel1.at(index));
  Add("imaLinkEmp" + place, imaLinkEmp.at(index));
  Add("imaUnLinkEmp" + place, imaUnLinkEmp.at(index));
  Add("ImaEditEmp" + place, ImaEditEmp.at(index));
  Add("lblPlan" + place, lblPlan.at(index));
  Add("PlanLabel1" + place, PlanLabel1.at(index));
  Add("imaLinkPlan" + place, imaLinkPlan.at(index));
  Add("ImaEditPlan" + place, ImaEditPlan.at(index));
  Add("EmpLabel2" + place, EmpLabel2.at(index));
  Add("PlanLabel2" + place, PlanLabel2.at(index));
  Add("pEmpID" + place, links_.at(index));
}

void EmployerSlots::Attach(editing::NameSearch& search) {
  for (EmployerSlot& slot : slots_) {
    search.Attach(slot);
  }
}

void EmployerSlots::Read() {
  Followed();
  Show();
}

void EmployerSlots::ShowTaken() {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (!person_.Changed(links_.at(i))) {
      read_.at(i) = LinkIn(links_.at(i));
    }
  }
  Show();
}

void EmployerSlots::Show() {
  std::vector<std::int32_t> links;
  for (const EmployerSlot& slot : slots_) {
    if (slot.Link() != 0) {
      links.push_back(slot.Link());
    }
  }
  for (EmployerSlot& slot : slots_) {
    slot.Show(nullptr);
  }
  if (links.empty()) {
    return;
  }
  for (const auto row = statements_.Select(EmployerSlot::Rows(statements_, links)); !row->Eof(); row->MoveNext()) {
    const std::int32_t link = session::ToId(row->Get(0));
    for (EmployerSlot& slot : slots_) {
      if (slot.Link() == link) {
        slot.Show(row.get());
      }
    }
  }
}

// What the row names has moved in the row; what is not saved yet goes on without a plan.
void EmployerSlots::ShowMoved() {
  const data::PlanLinks links(context_.session);
  std::vector<forms::Field*> stored;
  for (forms::Label& link : links_) {
    if (!person_.Changed(link)) {
      stored.push_back(&link);
    } else if (const auto row = links.Get(LinkIn(link)); row && !row->live) {
      link.Caption = std::to_string(links.OpenNone(row->employer));
    }
  }
  person_.Refresh(stored);
  ShowTaken();
}

const EmployerSlot* EmployerSlots::Naming(std::int32_t link) const {
  const auto* found = std::ranges::find(slots_, link, &EmployerSlot::Link);
  return found == slots_.end() ? nullptr : found;
}

bool EmployerSlots::StoresPlan(const EmployerSlot& slot) const {
  const auto link = data::PlanLinks(context_.session).Get(read_.at(static_cast<std::size_t>(&slot - slots_.data())));
  return link && !link->IsNone();
}

bool EmployerSlots::Relinked() const {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (slots_.at(i).Link() != read_.at(i)) {
      return true;
    }
  }
  return false;
}

std::array<std::int32_t, EmployerSlots::kCount> EmployerSlots::Stored() const {
  std::array<std::int32_t, kCount> stored{};
  const auto row = statements_.Select("SELECT pEmpID1, pEmpID2, pEmpID3, pEmpID4 FROM PATable WHERE pID=" +
                                      data::Literal(person_.Id()) + statements_.Office());
  for (std::size_t i = 0; i < kCount && !row->Eof(); ++i) {
    stored.at(i) = session::ToId(row->Get(i));
  }
  return stored;
}

// What the row names now is what the person's coverage goes through, whoever wrote it. A link that moved to another
// slot is not left.
std::vector<session::LogEntry> EmployerSlots::Follow() const {
  std::vector<session::LogEntry> entries;
  const auto stored = Stored();
  for (std::size_t i = 0; i < kCount; ++i) {
    const std::int32_t to = slots_.at(i).Link();
    if (to != read_.at(i)) {
      const std::int32_t from = Naming(stored.at(i)) == nullptr ? stored.at(i) : 0;
      std::ranges::move(data::ChangeEmployerPlace(context_.session, person_.Id(), from, to),
                        std::back_inserter(entries));
    }
  }
  return entries;
}

void EmployerSlots::Followed() {
  for (std::size_t i = 0; i < kCount; ++i) {
    read_.at(i) = slots_.at(i).Link();
  }
}

}  // namespace people
