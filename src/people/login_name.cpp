#include "people/login_name.h"

#include <utility>

#include "data/literal.h"
#include "forms/text.h"

namespace people {
namespace {

using data::Literal;
using data::Sql;

// Letters and digits, and whatever other alphabets have.
std::string OfName(std::string_view text) {
  std::string name;
  for (const char c : text) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
    if (letter || forms::IsDigit(c)) {
      name += c;
    }
  }
  return name;
}

}  // namespace

Sql RightsOf(const data::Statements& statements, std::int32_t login, const std::string& name) {
  return "PWAUseNam=" + Literal(name) + " AND ((PWAPWMID=" + Literal(login) +
         ") OR (PWAPWMID=0) OR (PWAPWMID Is Null))" + statements.Office();
}

LoginName::LoginName(const session::ScreenContext& context, const Parts& parts, std::function<Person()> whose)
    : Rules(context), parts_(parts), whose_(std::move(whose)), record_(context.session, "PWMTable", "PWMID") {
  Adopt(parts_.box);
  Adopt(parts_.password);
  Adopt(parts_.state);
  record_.Bind(parts_.box, "PWMUseNam");
  record_.Bind(person_, "PWMPid");
  person_.AccessibleName = "Employee";
  parts_.box.Leave = [this] { TakeFree(); };
  parts_.password.Click = [this] { AskPassword(); };
}

void LoginName::Read(std::int32_t person) {
  if (person == 0) {
    record_.ReadNone(Sql("Select * from PWMTable where pwmUseNam=''") + statements_.Office());
  } else {
    record_.Read("SELECT * FROM PWMTable WHERE PWMpID=" + Literal(person) + statements_.Office());
  }
  ReadState();
}

void LoginName::ReadEntered(std::int32_t login) {
  entered_ = record_.Read(login);
  ReadState();
}

// A person who is not written yet has no number that a login could carry. Another login of his own is in the way too.
bool LoginName::Taken(const std::string& name) const {
  const std::int32_t person = whose_().id;
  const auto others = [&](const Sql& whose) {
    return session::ToId(statements_.SelectValue("SELECT Count(*) FROM PWMTable WHERE (PWMUSENAM = " + Literal(name) +
                                                 ")" + whose + statements_.Office() + " AND (PWMID<>" + Literal(Id()) +
                                                 ")")) != 0;
  };
  return others(" AND (PWMPid<>" + Literal(person == 0 ? -1 : person) + ")") || others({});
}

// First initial and last name, and a number where others have those.
std::string LoginName::Proposed() const {
  const Person person = whose_();
  std::string base = forms::Left(OfName(person.first), 1) + OfName(person.last);
  if (base.empty()) {
    base = "Employee";
  }
  const int room = parts_.box.MaxLength;
  std::string name = forms::Fitting(base, room);
  for (int number = 2; Taken(name); ++number) {
    const std::string digits = std::to_string(number);
    name = forms::Fitting(base, room == 0 ? 0 : room - static_cast<int>(digits.size())) + digits;
  }
  return name;
}

void LoginName::TakeFree() {
  const std::string typed(forms::Trim(parts_.box.Text.get()));
  if (!record_.Changed(parts_.box)) {
    return;
  }
  parts_.box.Text = typed;
  if (!typed.empty() && Taken(typed)) {
    const std::string proposed = Proposed();
    Tell("Login Name [" + typed + "] is used by another employee.\r\nThe program will assign your login name as [" +
         proposed + "]");
    parts_.box.Text = proposed;
  }
}

bool LoginName::Take() {
  TakeFree();
  const bool untouched = storable_.empty() && (Id() == 0 || !record_.Changed(parts_.box));
  if (!parts_.box.Text->empty() || untouched) {
    return true;
  }
  Tell("The login name cannot be blank.", forms::Icon::Information);
  parts_.box.SetFocus();
  return false;
}

void LoginName::Propose() {
  if (parts_.box.Text->empty()) {
    parts_.box.Text = Proposed();
  }
}

void LoginName::AskPassword() {
  if (!MayModify()) {
    return;
  }
  const auto ask = [this](const char* prompt) {
    return context_.user.Input({.prompt = prompt, .title = "Password", .masked = true}).value_or(std::string());
  };
  const std::string password = ask("Password :");
  if (password.empty()) {
    return;
  }
  const auto again =
      context_.user.Input({.prompt = "Please type password again to comfirm", .title = "Password", .masked = true});
  if (again && *again != password) {
    storable_.clear();
    ShowState();
    Tell("Can not comfirm password, please try again");
  }
  if (!again || *again != password) {
    return;
  }
  const auto storable = context_.session.StorablePassword(password);
  if (!storable || storable->empty()) {
    Tell("The password was not taken: the suite does not say in which form passwords are stored.",
         forms::Icon::Exclamation);
    return;
  }
  storable_ = *storable;
  Propose();
  ShowState();
}

// What it is stays in the database.
void LoginName::ReadState() {
  has_password_ = Id() != 0 && statements_
                                   .Select("SELECT PWMID FROM PWMTable WHERE (PWMID=" + Literal(Id()) +
                                           ") AND ((PWMPasWor='') OR (PWMPasWor Is Null))" + statements_.Office())
                                   ->Eof();
  ShowState();
}

void LoginName::ShowState() {
  parts_.state.Caption = !storable_.empty() ? "The new password is stored when you save."
                         : Id() == 0        ? "There is no login yet."
                         : !has_password_   ? "No password has been set."
                                            : "A password is never shown, only replaced.";
}

std::int32_t LoginName::Insert(std::int32_t person) {
  person_.Caption = std::to_string(person);
  return record_.Insert();
}

void LoginName::Link(std::int32_t person) {
  statements_.Execute("UPDATE PWMTable SET PWMPID=" + Literal(person) + " WHERE PWMID=" + Literal(Id()) +
                      statements_.Office());
  person_.Caption = std::to_string(person);
  record_.MarkWritten(person_);
  entered_ = false;
}

void LoginName::Locate() {
  const std::int32_t first =
      session::ToId(statements_.SelectValue("SELECT TOP 1 OffLocID, OffLocNam FROM OffLocTable WHERE (OffLocID>0)" +
                                            statements_.Office() + " ORDER BY OffLocID"));
  statements_.Execute("UPDATE PWMTABLE SET OffLocID=" + Literal(first) + " WHERE (PWMID=" + Literal(Id()) +
                      ") AND (OffLocID=0)" + statements_.Office());
}

// What failed is told without the password.
void LoginName::Write() const {
  data::Assignments values;
  if (record_.Changed(parts_.box)) {
    values.push_back({"PWMUseNam", Literal(parts_.box.Text.get())});
  }
  if (!storable_.empty()) {
    values.push_back({"PWMPasWor", Literal(storable_)});
  }
  try {
    statements_.Update("PWMTable", values, "PWMID", Id());
  } catch (const session::DatabaseError& error) {
    throw error.Of("UPDATE PWMTable SET ...");
  }
}

void LoginName::MarkWritten() {
  record_.MarkWritten();
  has_password_ = has_password_ || !storable_.empty();
  storable_.clear();
  ShowState();
}

}  // namespace people
