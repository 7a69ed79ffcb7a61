#include "insurance/link_removal.h"

#include <utility>

#include "data/literal.h"
#include "editing/shared_record_removal.h"

namespace insurance {
namespace {

using forms::Answer;

class LinkRemoval : public editing::SharedRecordRemoval {
 public:
  LinkRemoval(const session::ScreenContext& context, std::int32_t link, const std::string& name,
              std::function<void()> before_replacing)
      : SharedRecordRemoval(context, data::SharedRecord::PlanLink, link, name),
        before_replacing_(std::move(before_replacing)) {}

 private:
  void BeforeReplacing() override { before_replacing_(); }

  forms::Message Question(int subscribers) const override {
    return subscribers == 0 ? QuestionOfNobodys() : QuestionOfSubscribers(subscribers);
  }

  forms::Message QuestionOfNobodys() const {
    return {.text = "This insurance plan is " + std::string(HadSubscribers() ? "no longer" : "not") +
                    " connected to any subscribers through this employer.\r\nAre you sure you want to remove this "
                    "plan?",
            .title = "Remove Coverage Link",
            .buttons = forms::kOkCancel,
            .icon = forms::Icon::Question,
            .default_answer = Answer::Cancel};
  }

  forms::Message QuestionOfSubscribers(int subscribers) const {
    const data::LinkNames names = data::PlanLinks(context_.session).NamesOf(Id());
    return {.text = "Insurance Company : " + names.carrier + "\r\nGroup Number : " + names.group_number +
                    "\r\nEmployer : " + names.employer + "\r\n\r\nThis insurance plan is connected to " +
                    std::to_string(subscribers) + " subscriber" + (subscribers > 1 ? "s" : "") +
                    " through this employer.\r\nUn-linking it will remove insurance\r\ncoverage from both the "
                    "subscriber and covered family members.\r\n\r\nBefore un-linking this insurance plan, you can "
                    "select a new plan to take its place.\r\nClick 'Replace' to select a replacement insurance plan "
                    "from the list.\r\nClick 'Un-Link' to Un-Link the insurance plan without replacing.",
            .title = "Un-link Insurance Plan",
            .buttons = {Answer::Replace, Answer::UnLink, Answer::Cancel},
            .icon = forms::Icon::Exclamation,
            .default_answer = Answer::Cancel};
  }

  bool HadSubscribers() const {
    return session::ToId(statements_.SelectValue("SELECT Count(PatEmpID) FROM PatEmpTable WHERE (PatEmpElID=" +
                                                 data::Literal(Id()) + ") AND (PatEmpFla<>0)" + statements_.Office())) >
           0;
  }

  std::function<void()> before_replacing_;
};

}  // namespace

bool RemovePlanLink(const session::ScreenContext& context, std::int32_t link, const std::string& name,
                    const std::function<void()>& before_replacing) {
  return LinkRemoval(context, link, name, before_replacing).Run();
}

}  // namespace insurance
