#include "editing/provider_deletion.h"

#include <optional>
#include <vector>

#include "data/literal.h"
#include "editing/person_deletion.h"
#include "editing/record_hold.h"

namespace editing {
namespace {

using data::Literal;
using data::Sql;

// A statement of the work, and what the person reads meanwhile.
struct Step {
  std::string caption;
  Sql statement;
};

class ProviderDeletion : private Rules {
 public:
  ProviderDeletion(const session::ScreenContext& context, std::int32_t id) : Rules(context), id_(id) {}

  bool Run() {
    if (!HasRight("DELETE-PROVIDER", "providers", "delete")) {
      return false;
    }
    bool declined = false;
    Attempt([&] {
      const RecordHold hold(context_.session, "PATABLE", id_);
      hold.Require();
      const DeletedPerson provider = DeletedPerson::Read(statements_, id_);
      std::optional<DeletedPerson> successor;
      if (!IsSetUp(provider) && Agrees()) {
        successor = ChooseSuccessor(provider);
      }
      declined = !successor;
      if (successor) {
        const RecordHold hold_of_successor(context_.session, "PATABLE", successor->id);
        hold_of_successor.Require();
        if (!DeletedPerson::Read(statements_, successor->id).provider) {
          throw Refusal(successor->name + " is not a provider any more. Nothing was changed.");
        }
        hold.Require();
        HandOver(provider, *successor);
        Tell(provider.name + " has been removed from the provider list.\r\nIf you want to delete or terminate " +
                 provider.name + ", please do so on the Employee Editing Screen.",
             forms::Icon::Information);
      }
    });
    return !declined;
  }

 private:
  // Whether the office is set up with him; says so when it is.
  bool IsSetUp(const DeletedPerson& provider) const {
    const auto is_him = [this](std::string_view key) {
      return session::ToId(context_.session.OfficeSetting("DEFAULT_OFFICE_SETUP", key)) == id_;
    };
    const bool of_practice = is_him("OFF_PRA_PRO");
    const bool by_default = is_him("OFF_DEF_PRO");
    if (!of_practice && !by_default) {
      return false;
    }
    const std::string role = !by_default    ? "Practice Provider"
                             : !of_practice ? "Default Provider"
                                            : "Practice Provider and the Default Provider";
    Tell("Cannot delete selected provider from the Provider List because " + provider.name + " is setup as the " +
             role + ". In order to delete " + provider.name + ", please change the " + role +
             " from the Office Setup Screen first.",
         forms::Icon::Exclamation);
    return true;
  }

  bool Agrees() const {
    return Confirm(
        "Do you wish to delete the selected provider?\r\nBy deleting this provider, the program will also "
        "delete the appointment templates for this provider.");
  }

  std::optional<DeletedPerson> ChooseSuccessor(const DeletedPerson& provider) const {
    for (;;) {
      const session::ListOutcome chosen = context_.screens.ShowList(
          session::lulProvider,
          {.title = "Please select a new provider for patients' records and appointments assigned to " + provider.name,
           .allow_delete = false,
           .select_mode = true});
      if (!chosen.Chosen()) {
        return std::nullopt;
      }
      if (chosen.id != id_) {
        return DeletedPerson::Read(statements_, chosen.id);
      }
      Tell("You cannot select the provider you are deleting.", forms::Icon::Exclamation);
    }
  }

  // Each statement finds nothing to do where it has been run before, and the last one takes him from the list: the same
  // command finishes what was broken off.
  void HandOver(const DeletedPerson& provider, const DeletedPerson& successor) const {
    const std::vector<Step> steps = StepsOf(provider, successor);
    const forms::WaitText wait(context_.user, steps.front().caption);
    for (std::size_t i = 0; i < steps.size(); ++i) {
      context_.user.Wait(steps[i].caption, static_cast<double>(i) / static_cast<double>(steps.size()));
      statements_.Execute(steps[i].statement + statements_.Office());
    }
  }

  std::vector<Step> StepsOf(const DeletedPerson& provider, const DeletedPerson& successor) const {
    const Sql from = Literal(provider.id);
    const Sql to = Literal(successor.id);
    const Sql today = Literal(context_.session.Today());
    return {
        {"Deleting Appointment Template Setup for " + provider.name + ". Please wait...",
         "DELETE * FROM ATTable WHERE ATDrID=" + from},
        // A template of type 3 that has started is in use.
        {"Deleting Appointment Template for " + provider.name,
         "DELETE * FROM TemplateTable WHERE tmpDrID=" + from +
             " AND NOT EXISTS (SELECT tstID FROM TemplateSetupTable WHERE (TemplateSetupTable.tstTmpID = "
             "TemplateTable.tmpID)" +
             statements_.OfficeJoin(" and (TemplateSetupTable.OfficeID = TemplateTable.OfficeID)") +
             " AND (TemplateTable.tmpTyp=3) AND NOT (tstStaDat >=" + today + "))"},
        {"Updating operatories. Please wait...",
         "Update opTable set OpPrefDrID = " + to + " where OpPrefDrID = " + from},
        {"Deleting operatory assignments for " + provider.name + ". Please wait...",
         "DELETE * FROM AOATable WHERE AOADrID=" + from},
        {"Updating appointments. Please wait...",
         "Update ApTable Set APTable.APDrID=" + to + " where APTable.APDrID=" + from + " and APDat>=" + today},
        {"Updating patient records. Please wait...", "Update Patable set pPROIND = " + to + " where pPROIND = " + from},
        {"Updating recalls. Please wait...", "Update RecTable set rRecDoc = " + Literal(successor.name) +
                                                 ", rRecDocID = " + to + " where rRecDocID = " + from},
        {"Updating the provider list. Please wait...", "Update Patable set pTypDoc = Null where pID = " + from},
    };
  }

  std::int32_t id_;
};

}  // namespace

bool DeleteProvider(const session::ScreenContext& context, std::int32_t provider) {
  return ProviderDeletion(context, provider).Run();
}

}  // namespace editing
