#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/record_binding.h"
#include "editing/record_hold.h"
#include "editing/rules.h"
#include "forms/form.h"
#include "forms/text_box.h"

namespace editing {

// Why a save is refused when the row is gone.
inline constexpr std::string_view kDeletedMeanwhile =
    "Another user has deleted this record. Your entries are still on the screen.";

// What every editing screen does: it reads when it opens, and closes when that fails; saves step by step; asks on
// closing with changes unsaved; and changes nothing of a record that another user holds. A save whose connection is
// lost can be tried again from the step on that it came to.
class EditingForm : public forms::Form, public Rules {
 public:
  EditingForm(std::string name, const session::ScreenContext& context) : Form(std::move(name)), Rules(context) {}

  // Something was written.
  bool Saved = false;

  // A rule that fails ends there; what was typed stays.
  void Run(const std::function<void()>& rule) override { Attempt(rule); }

  // The record can only be looked at: another user holds it, the user lacks the right, or the database is protected.
  bool ReadOnly() const { return read_only_; }
  // The same of the screen that a control is on.
  static bool ReadOnly(const forms::Control& control);
  static bool MayModify(const forms::Control& control);
  bool MayModify() const;

 protected:
  // Reads what the screen shows; may close it.
  virtual void Read() = 0;
  // What the screen shows differs from what was read.
  virtual bool Differs() const = 0;
  // Whether what is on the screen can be saved; says why not, and puts the focus there.
  virtual bool Check() { return true; }
  // For `Check`: whether every field of the record holds a value of its format.
  bool Readable(const data::RecordBinding& record) const;

  // A record that the screen edits. Before a save the person is asked about columns that another user has changed since
  // they were read; nothing is saved when the row is gone.
  void Edits(data::RecordBinding& record) { records_.push_back(&record); }
  // The last word before a save writes anything, behind the question about other users' changes; false goes back to the
  // screen. Throws session::DatabaseError, and Refusal.
  virtual bool Agreed() { return true; }
  // Fields of a record show what is stored in the place of what was typed: the time to show what hangs on them.
  virtual void OnTaken() {}

  // A step of saving, run in the order of the calls when it is due. One that was due when a save stopped on its way
  // stays due, and runs again as a whole: what must not be done twice is a step of its own.
  void OnSave(std::function<bool()> due, std::function<void()> run);
  // False when something kept it from being saved whole.
  bool Save();
  // Changed, or saved in part.
  bool Unsaved() const;

  // What is asked when the screen closes with changes unsaved.
  struct ClosingQuestion {
    std::string text = "Are you sure that you want to exit without saving the changes?";
    std::string title{forms::kSuiteTitle};
    bool offers_to_save = false;  // Yes saves, No discards, Cancel stays; without it Yes discards and No stays
  };
  // What has been saved in part is not left so unasked.
  virtual ClosingQuestion OnClosing() const;

  // Holds the record, beside those held before, for as long as the screen is open; one that another user holds can only
  // be looked at, unless he is silent and a supervisor takes it over. Comes before the record is read: what is read
  // before may be changed before it is held.
  void Hold(const std::string& table, std::int32_t id);
  // Lets the record go: nothing of it is due any more, and it makes nothing read only. Before another one is shown in
  // its place.
  void LetGo();
  // Without the right the record can only be looked at, and whoever tries to change it is told. `what` is what the
  // right modifies: "employers". False without it.
  bool RequireRight(std::string_view right, std::string_view what);
  // Before a rule writes outside a save: throws Refusal when another user has taken a held record over.
  void RequireHold() const;
  void MakeReadOnly();
  // The same of one field: `may`, which is false, tells whoever tries to change it.
  static void LookOnly(forms::TextBox& box, const std::function<bool()>& may);

  void OnLoad() override;
  bool QueryClose() override;
  // Ctrl+S saves and stays.
  bool OnKey(forms::Key key) override;

 private:
  struct Step {
    std::function<bool()> due;
    std::function<void()> run;
    bool pending = false;
  };

  struct Right {
    std::string keyword;
    std::string what;
  };

  // False when the person goes back to the screen. Throws session::DatabaseError, and Refusal for a row that is gone.
  bool SettleConflicts();
  forms::Answer AskAboutConflicts(const std::vector<std::string>& lines) const;
  // The first of the held records that another user has.
  const session::RecordHolder* Holder() const;
  void RunSteps();
  // False when the connection was lost on the way, and the person wants to try the rest again.
  bool RanSteps();
  bool SavedInPart() const { return in_part_; }

  std::vector<data::RecordBinding*> records_;
  std::vector<Step> steps_;
  std::list<RecordHold> holds_;
  std::vector<std::function<void()>> editable_again_;
  std::optional<Right> lacked_;
  bool in_part_ = false;  // a step ended well, and one behind it has not yet
  bool read_only_ = false;
};

}  // namespace editing
