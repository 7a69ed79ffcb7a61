#include "reminders/frmReminderOptions.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <optional>
#include <utility>

#include "forms/text.h"
#include "practice/machine.h"
#include "reminders/mail_reader.h"

namespace host {
namespace {

constexpr std::array kCaptions = {"&Mail server",          "&Port",           "&User name",        "Pass&word",
                                  "&Sender's address",     "Sender's &name",  "Web &hook",         "&Token",
                                  "Confi&rmation service", "Reply to te&xts", "Reply to e-ma&ils", "Office's n&ame",
                                  "Office's web pa&ge"};
constexpr int kLongest = 254;
constexpr int kLongestToken = 4096;
constexpr int kLongestReply = 4000;

std::string SecurityText(MailSecurity security) {
  switch (security) {
    case MailSecurity::None:
      return "None";
    case MailSecurity::StartTls:
      return "STARTTLS";
    case MailSecurity::Tls:
      return "TLS from the start";
  }
  return {};
}

// 0 for an empty text, which is the usual one; nothing for a text that is no port.
std::optional<int> PortOf(const std::string& text) {
  constexpr int kLast = 65535;
  int port = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, port);
  const bool is_port = error == std::errc() && stop == end && port > 0 && port <= kLast;
  return is_port ? std::optional(port) : text.empty() ? std::optional(0) : std::nullopt;
}

// What is typed in a secret's field says nothing of the one that is kept.
std::string SecretCaption(const char* caption, bool kept) {
  return std::string(caption) + (kept ? " (kept; type to replace)" : "");
}

}  // namespace

frmReminderOptions::frmReminderOptions(const session::ScreenContext& context, Outbox outbox, const std::string& problem)
    : EditingForm("frmReminderOptions", context), outbox_(std::move(outbox)) {
  Caption = "Reminder Sending";
  lblProblem.Caption = "The last message was not sent: " + problem;
  lblProblem.Visible = !problem.empty();
  lblFolder.Caption = "Messages without a server or web hook wait in " + outbox_.Told() +
                      ", one file each. Nothing sends them from there.";
  Register();
  Wire();
}

void frmReminderOptions::Register() {
  Add("lblProblem", lblProblem);
  Add("lblMail", lblMail);
  Add("lblOption", lblOption);
  Add("txtOption", txtOption);
  Add("lblSecurity", lblSecurity);
  Add("cboSecurity", cboSecurity);
  Add("lblText", lblText);
  Add("lblFolder", lblFolder);
  Add("lblOutbox", lblOutbox);
  Add("TDBG", TDBG);
  Add("lblMessage", lblMessage);
  Add("txtMessage", txtMessage);
  Add("cmdFolder", cmdFolder);
  Add("cmdDelete", cmdDelete);
  Add("DialogButtons1", DialogButtons1);
  for (std::size_t i = 0; i < kOptions; ++i) {
    lblOption.at(i).Caption = kCaptions.at(i);
    txtOption.at(i).Heading = &lblOption.at(i);
    txtOption.at(i).MaxLength = kLongest;
  }
  txtOption[kToken].MaxLength = kLongestToken;
  for (const Option reply : {kTextReply, kMailReply}) {
    txtOption.at(reply).MultiLine = true;
    txtOption.at(reply).MaxLength = kLongestReply;
  }
  txtOption[kPassword].PasswordChar = '*';
  txtOption[kToken].PasswordChar = '*';
  lblSecurity.Caption = "S&ecurity";
  cboSecurity.Heading = &lblSecurity;
  std::vector<forms::ListItem> items;
  items.reserve(kMailSecurities.size());
  for (const MailSecurity security : kMailSecurities) {
    items.push_back({SecurityText(security), static_cast<std::int32_t>(security)});
  }
  cboSecurity.Items = std::move(items);
  lblOutbox.Caption = "Out&box";
  TDBG.Heading = &lblOutbox;
  TDBG.Columns = {{.key = "When", .caption = "When", .width = 130},
                  {.key = "Kind", .caption = "Kind", .width = 110},
                  {.key = "To", .caption = "To", .width = 210}};
  lblMessage.Caption = "Message to be &looked at";
  txtMessage.Heading = &lblMessage;
  txtMessage.MultiLine = true;
  txtMessage.ReadOnly = true;
  cmdFolder.Caption = "Open &Folder";
  cmdDelete.Caption = "&Delete";
  DialogButtons1.Help.Visible = false;
  Reads({&lblProblem,
         &lblMail,
         &txtOption[kServer],
         &cboSecurity,
         &txtOption[kPort],
         &txtOption[kUser],
         &txtOption[kPassword],
         &txtOption[kSender],
         &txtOption[kSenderName],
         &lblText,
         &txtOption[kHook],
         &txtOption[kToken],
         &txtOption[kConfirmation],
         &txtOption[kTextReply],
         &txtOption[kMailReply],
         &txtOption[kOfficeName],
         &txtOption[kWebsite],
         &lblFolder,
         &TDBG,
         &txtMessage,
         &cmdFolder,
         &cmdDelete,
         &DialogButtons1});
}

void frmReminderOptions::Wire() {
  for (forms::TextBox& box : txtOption) {
    box.Change = [this] { ShowWays(); };
  }
  cboSecurity.Click = [this] { ShowWays(); };
  TDBG.RowColChange = [this] { ShowMessage(); };
  cmdFolder.Click = [this] { OpenFolder(); };
  cmdDelete.Click = [this] { DeleteMessage(); };
  DialogButtons1.OK.Click = [this] {
    if (!Unsaved() || Save()) {
      Close();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
  OnSave([this] { return Differs(); },
         [this] {
           WriteReminderSettings(context_.session, Typed());
           lblProblem.Visible = false;  // it was of the settings before
           ShowSettings();
         });
}

void frmReminderOptions::Read() {
  cboSecurity.Enabled = RequireRight(session::kSupervisorRight, "reminder options");
  ShowSettings();
  ShowOutbox();
}

void frmReminderOptions::ShowSettings() {
  settings_ = ReadReminderSettings(context_.session);
  txtOption[kServer].Text = settings_.server;
  txtOption[kPort].Text = settings_.port == 0 ? std::string() : std::to_string(settings_.port);
  txtOption[kUser].Text = settings_.user;
  txtOption[kSender].Text = settings_.sender;
  txtOption[kSenderName].Text = settings_.sender_name;
  txtOption[kHook].Text = settings_.hook;
  txtOption[kConfirmation].Text = settings_.confirmation_address;
  txtOption[kTextReply].Text = settings_.text_instructions;
  txtOption[kMailReply].Text = settings_.email_instructions;
  txtOption[kOfficeName].Text = settings_.office_name;
  txtOption[kWebsite].Text = settings_.office_website;
  txtOption[kPassword].Text = std::string();
  txtOption[kToken].Text = std::string();
  lblOption[kPassword].Caption = SecretCaption(kCaptions[kPassword], !settings_.password.empty());
  lblOption[kToken].Caption = SecretCaption(kCaptions[kToken], !settings_.token.empty());
  cboSecurity.ListIndex = cboSecurity.IndexOfData(static_cast<std::int32_t>(settings_.security));
  ShowWays();
}

// Line ends as they are stored are no difference.
std::string frmReminderOptions::TypedReply(Option option, const std::string& stored) const {
  return txtOption.at(option).Text.get() == stored ? stored : Typed(option);
}

std::string frmReminderOptions::Typed(Option option) const {
  const std::string& text = txtOption.at(option).Text.get();
  return std::string(forms::Trim(text));
}

ReminderSettings frmReminderOptions::Typed() const {
  ReminderSettings typed;
  typed.server = Typed(kServer);
  typed.port = PortOf(Typed(kPort)).value_or(-1);
  typed.security =
      cboSecurity.Current() == nullptr ? settings_.security : static_cast<MailSecurity>(cboSecurity.Current()->data);
  typed.user = Typed(kUser);
  typed.sender = Typed(kSender);
  typed.sender_name = Typed(kSenderName);
  typed.hook = Typed(kHook);
  // Blanks may belong to a password.
  const std::string& password = txtOption[kPassword].Text.get();
  const std::string token = Typed(kToken);
  const bool keeps_password = !typed.server.empty() && !typed.user.empty();
  typed.password = !password.empty() ? password : keeps_password ? settings_.password : std::string();
  typed.token = !token.empty() ? token : !typed.hook.empty() ? settings_.token : std::string();
  typed.confirmation_address = Typed(kConfirmation);
  typed.text_instructions = TypedReply(kTextReply, settings_.text_instructions);
  typed.email_instructions = TypedReply(kMailReply, settings_.email_instructions);
  typed.office_name = Typed(kOfficeName);
  typed.office_website = Typed(kWebsite);
  return typed;
}

bool frmReminderOptions::Check() {
  const ReminderSettings typed = Typed();
  return CheckMail(typed) && CheckHook(typed) && CheckTexts(typed);
}

bool frmReminderOptions::CheckMail(const ReminderSettings& typed) {
  if (!typed.server.empty() && !IsHostName(typed.server)) {
    const bool has_port = typed.server.find(':') != std::string::npos;
    return Refuse(ToldBack(typed.server) + " is not the name of a server." +
                      (has_port ? " The port has a field of its own." : ""),
                  kServer);
  }
  if (typed.port < 0) {
    return Refuse(ToldBack(Typed(kPort)) + " is not a port. Ports are 1 to 65535; leave it empty for the usual one.",
                  kPort);
  }
  const bool wants_sender = !typed.server.empty() || !typed.sender.empty();
  if (wants_sender && !IsMailAddress(typed.sender)) {
    return Refuse(ToldBack(typed.sender) + " is not a valid e-mail address of the sender.", kSender);
  }
  if (!typed.password.empty() && typed.user.empty()) {
    return Refuse("Please type the user name too.", kUser);
  }
  const bool goes_elsewhere =
      typed.server != settings_.server || typed.Port() != settings_.Port() || typed.security != settings_.security;
  if (goes_elsewhere && !typed.password.empty() && txtOption[kPassword].Text->empty()) {
    return Refuse("The kept password was for the mail server as it was. Please type the password again.", kPassword);
  }
  return true;
}

bool frmReminderOptions::CheckHook(const ReminderSettings& typed) {
  if (!typed.hook.empty() && !IsWebAddress(typed.hook)) {
    return Refuse(ToldBack(typed.hook) + " is not an address of the web, as https://texts.example/send is.", kHook);
  }
  if (!typed.token.empty() && typed.hook.empty()) {
    return Refuse("Please type the web hook too.", kHook);
  }
  if (!IsToken(typed.token)) {
    return Refuse("The token can only hold letters, digits and signs, without blanks.", kToken);
  }
  if (typed.hook != settings_.hook && !typed.token.empty() && Typed(kToken).empty()) {
    return Refuse("The kept token was for the web hook as it was. Please type the token again.", kToken);
  }
  return true;
}

bool frmReminderOptions::CheckTexts(const ReminderSettings& typed) {
  const std::string& address = typed.confirmation_address;
  return address.empty() || IsWebAddress(address) ||
         Refuse(ToldBack(address) + " is not an address of the web, as https://confirm.example is.", kConfirmation);
}

bool frmReminderOptions::Refuse(const std::string& why, Option option) {
  Tell(why);
  txtOption.at(option).SetFocus();
  return false;
}

bool frmReminderOptions::Agreed() {
  return !IsReadableByOthers(Typed()) ||
         Warn(
             "Messages, and the password, will cross the network where others can read them.\r\n\r\nClick 'OK' only "
             "when the server stands in the office itself.");
}

void frmReminderOptions::ShowWays() {
  const ReminderSettings typed = Typed();
  lblMail.Caption = typed.server.empty()
                        ? "E-mails go to the outbox."
                        : "E-mails go to " + typed.server + ", port " +
                              std::to_string(typed.port < 0 ? UsualPort(typed.security) : typed.Port()) +
                              (typed.security == MailSecurity::None ? ", not encrypted." : ", encrypted.");
  lblText.Caption = typed.hook.empty() ? "Text messages go to the outbox." : "Text messages go to the web hook.";
}

void frmReminderOptions::ShowOutbox() {
  TDBG.EmptyText = outbox_.IsReadable() ? "No message waits here." : "The outbox cannot be read from this account.";
  entries_ = outbox_.List();
  auto rows = std::make_shared<forms::TableRows>();
  rows->rows.reserve(entries_.size());
  for (const Outbox::Entry& entry : entries_) {
    rows->rows.push_back({.cells = {entry.when, entry.is_email ? "E-mail" : "Text message", entry.to}});
  }
  TDBG.Rows = std::move(rows);
  TDBG.Row = entries_.empty() ? -1 : 0;
  TDBG.RowColChange();
}

const Outbox::Entry* frmReminderOptions::Current() const {
  const auto row = static_cast<std::size_t>(TDBG.Row.get());
  return row < entries_.size() ? &entries_[row] : nullptr;
}

void frmReminderOptions::ShowMessage() {
  const Outbox::Entry* entry = Current();
  const std::string text = entry == nullptr ? std::string() : outbox_.Read(entry->file);
  txtMessage.Text = entry != nullptr && entry->is_email ? ReadableMail(text) : text;
  cmdDelete.Enabled = entry != nullptr && MayModify();
}

void frmReminderOptions::OpenFolder() {
  std::error_code error;
  if (!std::filesystem::is_directory(outbox_.Folder(), error)) {
    Tell("There is no outbox yet: no message has come into it.");
  } else if (!context_.session.StartProgram(std::string(FileManager()) + " \"" + outbox_.Told() + '"')) {
    Tell("The folder cannot be shown on this machine. It is " + outbox_.Told());
  }
}

void frmReminderOptions::DeleteMessage() {
  const Outbox::Entry* entry = Current();
  if (entry == nullptr || !Confirm("Delete the message to " + ToldBack(entry->to) + "? It was not sent.")) {
    return;
  }
  if (!outbox_.Remove(entry->file)) {
    Tell("The message could not be deleted.");
  }
  ShowOutbox();
}

}  // namespace host
