#pragma once

#include <functional>
#include <memory>
#include <string>

#include "editing/kept_layout.h"
#include "editing/recordset_rows.h"
#include "editing/rules.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/text.h"
#include "forms/text_box.h"
#include "session/screens.h"

namespace lookup {

// The "Search Window": the records whose names match what is typed, to choose from or to add to.
class frmSearchWindow : public forms::Form, private editing::Rules {
 public:
  explicit frmSearchWindow(const session::ScreenContext& context);

  session::SearchList List = {};
  // What is asked about a name that nothing matches, as `session::SearchRequest` has it.
  std::function<std::string(const std::string& name)> Offer;
  session::SearchOutcome Result;

  forms::Label Label1;  // what is asked for, and then what was found
  forms::TextBox Text1;
  forms::Grid TDBG;
  forms::Label RowLabel;
  forms::DialogButtons DialogButtons1;  // `Extra` wants a new record

  void Run(const std::function<void()>& rule) override { Attempt(rule); }

  // Reads the first records that match the name; how many. Throws session::DatabaseError.
  int Find();
  // Asks about the name, which nothing matches. True when it is to be added.
  bool OfferNew();

 protected:
  void OnLoad() override;
  void OnClose() override { layout_.Keep(); }
  // A typed name is searched for when no further key is waiting.
  bool OnIdle() override;

 private:
  void RegisterProperties();
  // The result by its name: the ID as text, "-9999CANCEL", "-9997NEW", or "-1" for nothing.
  std::string ResultText() const;
  std::string Typed() const { return std::string(forms::Trim(Text1.Text.get())); }
  // The name is complete: its matches come to the front, or it is offered as a new one.
  void Enter();
  void ShowAsked(bool searched);
  void Sort(int column);
  void ShowCount();
  void Choose();
  void Leave(session::SearchOutcome result);

  editing::KeptLayout layout_{context_.session, TDBG};
  std::shared_ptr<editing::RecordsetRows> rows_;
  bool due_ = false;     // something was typed that the rows are not of
  int sort_column_ = 0;  // as the statement has them
  bool sort_descending_ = false;
};

// Has the person choose a record by its name: at once where the request brings a name, in the window otherwise.
session::SearchOutcome Search(const session::ScreenContext& context, const session::SearchRequest& request);

}  // namespace lookup
