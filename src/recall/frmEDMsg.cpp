#include "recall/frmEDMsg.h"

#include <array>
#include <utility>

#include "forms/text.h"

namespace recall {
namespace {

using data::ContactMethod;
using data::ReminderKind;

constexpr std::array kMethods = {ContactMethod::TextMessage, ContactMethod::Email};

template <typename Enumeration>
forms::Form::NamedProperty Named(Enumeration& property) {
  return {[&property] { return std::to_string(static_cast<std::int32_t>(property)); },
          [&property](const std::string& text) {
            property = static_cast<Enumeration>(session::ToId(session::Value(text)));
          }};
}

forms::Form::NamedProperty Named(bool& property) {
  return {[&property] { return property ? "True" : "False"; },
          [&property](const std::string& text) { property = forms::IsOn(text); }};
}

std::string TitleOf(ReminderKind kind, ContactMethod method) {
  return std::string(kind == ReminderKind::Confirmation ? "Confirmation" : "Reminder") +
         (method == ContactMethod::Email ? " E-Mail" : " SMS") + " Template Editor";
}

}  // namespace

frmEDMsg::frmEDMsg(const session::ScreenContext& context)
    : EditingForm("frmEDMsg", context), editor(context), test_(context) {
  Register();
  Wire();
}

void frmEDMsg::Register() {
  lblKind.Caption = "&Kind of Reminder";
  cboKind.Heading = &lblKind;
  lblMethod.Caption = "Sent &by";
  cboMethod.Heading = &lblMethod;
  Add("lblKind", lblKind);
  Add("cboKind", cboKind);
  Add("lblMethod", lblMethod);
  Add("cboMethod", cboMethod);
  Add("picEditor", editor);
  Add("db", db);
  db.Cancel.Caption = "&Cancel";
  db.Help.Visible = false;
  db.Extra.Caption = "Send &Test";
  db.Extra.Visible = true;

  std::vector<forms::ListItem> kinds;
  for (const ReminderKind kind : data::kReminderKinds) {
    if (!data::TemplateCodeOf(kind).empty()) {
      kinds.push_back({.text = std::string(data::NameOf(kind)), .data = static_cast<std::int32_t>(kind)});
    }
  }
  cboKind.Items = std::move(kinds);
  std::vector<forms::ListItem> methods;
  methods.reserve(kMethods.size());
  for (const ContactMethod method : kMethods) {
    methods.push_back({.text = std::string(data::NameOf(method)), .data = static_cast<std::int32_t>(method)});
  }
  cboMethod.Items = std::move(methods);

  Properties["emsRecordType"] = Named(emsRecordType);
  Properties["txtType"] = Named(txtType);
  Properties["LoadData"] = Named(LoadData);
  Properties["ShowPreview"] = Named(ShowPreview);
  Properties["AutoApplyCheckBoxVisible"] = Named(AutoApplyCheckBoxVisible);
  Properties["Modified"] = {[this] { return Modified() ? "True" : "False"; }, nullptr};
  Properties["Changed"] = {[this] { return Saved ? "True" : "False"; }, nullptr};
}

void frmEDMsg::Wire() {
  cboKind.Click = [this] { ChooseTemplate(); };
  cboMethod.Click = [this] { ChooseTemplate(); };
  db.OK.Click = [this] {
    if (!Modified() || Save()) {
      Close();
    }
  };
  db.Cancel.Click = [this] { DoClose(); };
  db.Extra.Click = [this] { test_.Send(txtType, [this] { return editor.Sample(); }); };
  OnSave([this] { return Modified(); }, [this] { Write(); });
}

void frmEDMsg::Read() {
  if (cboKind.IndexOfData(static_cast<std::int32_t>(emsRecordType)) < 0) {
    emsRecordType = ReminderKind::Appointment;
  }
  if (cboMethod.IndexOfData(static_cast<std::int32_t>(txtType)) < 0) {
    txtType = ContactMethod::Email;
  }
  ShowTemplate(ReadFile(emsRecordType, txtType));
  editor.qe.SetFocus();
}

// One that is there and cannot be read is not taken for none: it would be written over.
std::optional<std::string> frmEDMsg::ReadFile(ReminderKind kind, ContactMethod method) const {
  const TemplateFiles files(context_.session, kind);
  const std::string name = TemplateName(kind, method);
  auto text = files.Read(name);
  if (!text && files.Has(name)) {
    throw editing::Refusal("The template " + ToldBack(name) + " cannot be read.");
  }
  return text;
}

// Where the practice has none of its own, the generic message is what it begins with.
void frmEDMsg::ShowTemplate(std::optional<std::string> stored) {
  ShowChosen();
  stored_ = std::move(stored);
  std::string text = stored_.value_or(GenericMessage(emsRecordType, txtType, Language::English));
  const auto own = WithoutInstructions(text, Instructions(), txtType);
  text = !std::exchange(LoadData, true) ? "" : own.value_or(text);
  editor.Show({.kind = emsRecordType,
               .method = txtType,
               .text = text,
               .may_add_instructions = AutoApplyCheckBoxVisible,
               .adds_instructions = own || (!stored_ && AutoApplyCheckBoxVisible),
               .merged_title = true});
  editor.ShowParts(true, ShowPreview);
}

void frmEDMsg::ChooseTemplate() {
  const auto chosen = [](const forms::ComboBox& combo) {
    return combo.Current() == nullptr ? 0 : combo.Current()->data;
  };
  const auto kind = static_cast<ReminderKind>(chosen(cboKind));
  const auto method = static_cast<ContactMethod>(chosen(cboMethod));
  if (kind == emsRecordType && method == txtType) {
    return;
  }
  std::optional<std::string> stored;
  if (QueryClose() && Attempt([&] { stored = ReadFile(kind, method); })) {
    LetGo();  // a save that failed is not made up for in another template
    emsRecordType = kind;
    txtType = method;
    ShowTemplate(std::move(stored));
  } else {
    ShowChosen();
  }
}

void frmEDMsg::ShowChosen() {
  Caption = TitleOf(emsRecordType, txtType);
  cboKind.ListIndex = cboKind.IndexOfData(static_cast<std::int32_t>(emsRecordType));
  cboMethod.ListIndex = cboMethod.IndexOfData(static_cast<std::int32_t>(txtType));
}

bool frmEDMsg::Agreed() {
  generic_ = editor.IsEmpty();
  if (generic_ && !AgreesToGeneric()) {
    return false;
  }
  return ReadFile(emsRecordType, txtType) == stored_ ||
         context_.user.Ask({.text = "Another user has changed this template since it was opened.\r\nDo you want to "
                                    "replace what he wrote?",
                            .buttons = forms::kYesNo,
                            .icon = forms::Icon::Exclamation,
                            .default_answer = forms::Answer::No}) == forms::Answer::Yes;
}

bool frmEDMsg::AgreesToGeneric() const {
  return context_.user.Ask({.text = "You have removed your custom message. When you save this change, a generic "
                                    "message will be created for you.\r\nAre you sure you want to continue?",
                            .buttons = forms::kYesNo,
                            .icon = forms::Icon::Question,
                            .default_answer = forms::Answer::No}) == forms::Answer::Yes;
}

// What is stored carries the instructions: whoever sends it knows of no other place for them.
void frmEDMsg::Write() {
  std::string text = generic_ ? GenericMessage(emsRecordType, txtType, Language::English) : editor.Stored();
  if (editor.AddsInstructions()) {
    text = WithInstructions(std::move(text), Instructions(), txtType);
  }
  TemplateFiles(context_.session, emsRecordType).Write(TemplateName(emsRecordType, txtType), text);
  ShowTemplate(std::move(text));
}

}  // namespace recall
