#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/plan_links.h"
#include "editing/kept_layout.h"
#include "editing/rules.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/tool_bar.h"
#include "forms/user_control.h"

namespace insurance {

// The insurance plans that an employer offers: one is picked, edited, linked to the employer, or taken from him. A
// linked plan is written by `Save`; one that is taken from him goes at once.
class ucSelCoverage : public forms::UserControl, private editing::Rules {
 public:
  enum class Alignment { Top, Bottom };

  static constexpr std::string_view kLinkRight = "LINK-EMP-INS";

  explicit ucSelCoverage(const session::ScreenContext& context);

  std::int32_t EmployerID = 0;       // 0 for a new one, whose plans are saved behind him
  std::int32_t SubscriberID = 0;     // whose plan is highlighted, where that is known
  std::int32_t PatientID = 0;        // for whom the plans are looked at: the subscriber, or one of his family
  std::int32_t Subscriber_elID = 0;  // the link that the subscriber holds now
  std::int32_t HideElID = 0;         // a link that is not offered
  bool ShowNone = false;             // offers the employer's link for no insurance coverage as "( none )"
  Alignment ToolBarAlignment = Alignment::Top;

  forms::ToolBar TB;  // "LINK", "EDIT", "UNLINK", "OKAY", "CLOSE"
  forms::Label lblPlans;
  forms::Grid TDBG;
  forms::Label SB;

  // The screen's own: a plan was accepted, or none is wanted.
  std::function<void()> Accepted;
  std::function<void()> Closed;
  // Around what is written of an existing employer's plans: the first throws editing::Refusal when nothing may be, and
  // the second hears of what did not wait for `Save`.
  std::function<void()> BeforeWriting;
  std::function<void()> Written;

  forms::Button& Buttons(std::string_view key) { return TB[key]; }
  void HideButton(std::string_view key) { Buttons(key).Visible = false; }

  // Reads the employer's plans and makes his link for no insurance coverage where he has none; plans that are not saved
  // yet stay. Throws session::DatabaseError.
  void Load_Information();
  // A plan was linked that is not saved yet.
  bool Unsaved() const;
  // Links a group plan, or highlights its row where it is linked already. Throws session::DatabaseError, and
  // editing::Refusal for a plan without a carrier. False when nothing was linked.
  bool AddCoverage(std::int32_t plan);
  // Writes all that was linked, or nothing. Throws session::DatabaseError, and editing::Refusal when the employer or a
  // plan is gone.
  void Save();
  // Takes the highlighted plan as the choice; the person is told when there is none, or it is none any more.
  void Accept();

  bool MayLink() const;
  // The highlighted link; 0 for none, and before it is saved.
  std::int32_t Selected_elID() const;
  std::int32_t CarrierID() const;
  std::int32_t GroupID() const;

  void KeepLayout() { layout_.Keep(); }

 protected:
  void OnLoad() override;

 private:
  struct Offer {
    data::PlanLink link;  // ID 0 before it is saved
    session::Value end = {};
    std::string carrier = {};
    std::string group_number = {};
    std::string plan = {};

    // The row "( none )".
    bool IsNone() const { return link.id != 0 && link.IsNone(); }
    bool IsNew() const { return link.id == 0; }
  };

  void Register();
  void Wire();
  void Clicked(const std::string& key);
  bool OnGridKey(forms::Key key);

  // The employer's live links, but for the one that stands for no insurance coverage.
  std::vector<Offer> ReadOffers() const;
  std::optional<Offer> ReadPlan(std::int32_t plan) const;
  // 0 where there is none and none may be made, as for an employer who is gone.
  std::int32_t NoneLink() const;
  void ShowOffers();
  const Offer* Current() const;
  bool Highlight(const std::function<bool(const Offer&)>& which);

  void Link();
  void EditPlan();
  void UnLink();
  void UnLink(const Offer& offer);
  bool MayEdit() const;
  bool HasEmployer() const;
  bool ForFamilyMember() const { return SubscriberID != 0 && PatientID != 0 && PatientID != SubscriberID; }
  // For one of the family another plan is picked or edited than the subscriber's.
  void TellOfOther(const Offer& offer) const;
  std::string SubscriberName() const;

  std::vector<Offer> offers_;  // a row each
  editing::KeptLayout layout_;
};

}  // namespace insurance
