#include "lookup/delete_shared_record.h"

#include "editing/shared_record_removal.h"

namespace lookup {
namespace {

using data::SharedRecord;
using forms::Answer;

class Deletion : public editing::SharedRecordRemoval {
 public:
  using SharedRecordRemoval::SharedRecordRemoval;

 private:
  int Count() const override {
    const int uses = SharedRecordRemoval::Count();
    return Kind() == SharedRecord::Carrier ? uses + Records().UsesOfPlans(Id()) : uses;
  }

  std::string Logged(const std::string& name) const override { return "[" + name + "]"; }

  forms::Message Question(int patients) const override {
    const std::string& noun = NameOfKind().noun;
    const std::string title = "Delete " + noun;
    if (patients == 0) {
      return {.text = "This " + noun + " is not connected to any patients. Are you sure you want to delete ?",
              .title = title,
              .buttons = forms::kOkCancel,
              .icon = forms::Icon::Question,
              .default_answer = Answer::Cancel};
    }
    const std::string consequence =
        Kind() == SharedRecord::Pharmacy
            ? "leave these patients without a pharmacy. "
            : "remove insurance coverage from all patients covered through this " + noun + ". ";
    return {.text = "This " + noun + " is connected to " + std::to_string(patients) + " patient(s). Deleting it will " +
                    consequence + "Before deleting this " + noun + ", you can select a new " + noun +
                    " to take its place.\r\n\r\nClick 'Replace' to select a "
                    "replacement " +
                    noun + " from the list.\r\nClick 'Delete' to delete the " + noun + " without replacing.",
            .title = title,
            .buttons = {Answer::Replace, Answer::Delete, Answer::Cancel},
            .icon = forms::Icon::Exclamation,
            .default_answer = Answer::Cancel};
  }
};

bool Delete(const session::ScreenContext& context, SharedRecord kind, const DeletedRow& row) {
  return editing::Rules(context).HasRight("EDIT-EMP-INS", editing::WordsOf(kind).plural) &&
         Deletion(context, kind, row.id, row.name).Run();
}

}  // namespace

bool DeleteEmployer(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return Delete(context, SharedRecord::Employer, row);
}

bool DeleteCarrier(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                   const DeletedRow& row) {
  return Delete(context, SharedRecord::Carrier, row);
}

bool DeleteGroupPlan(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                     const DeletedRow& row) {
  return Delete(context, SharedRecord::GroupPlan, row);
}

bool DeletePharmacy(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return Delete(context, SharedRecord::Pharmacy, row);
}

}  // namespace lookup
