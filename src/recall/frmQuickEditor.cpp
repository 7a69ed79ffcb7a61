#include "recall/frmQuickEditor.h"

#include <utility>

#include "forms/text.h"
#include "session/value.h"

namespace recall {
namespace {

using data::ContactMethod;

forms::Form::NamedProperty Named(std::string& property) {
  return {[&property] { return property; }, [&property](const std::string& text) { property = text; }};
}

forms::Form::NamedProperty Named(bool& property) {
  return {[&property] { return property ? "True" : "False"; },
          [&property](const std::string& text) { property = forms::IsOn(text); }};
}

template <typename Enumeration>
forms::Form::NamedProperty Named(Enumeration& property) {
  return {[&property] { return std::to_string(static_cast<std::int32_t>(property)); },
          [&property](const std::string& text) {
            property = static_cast<Enumeration>(session::ToId(session::Value(text)));
          }};
}

// "{Office Name}{Office Phone}": a variable may hold a comma.
std::vector<std::string> VariablesOf(std::string_view text) {
  std::vector<std::string> variables;
  for (std::size_t end = text.find('}'); end != std::string_view::npos; end = text.find('}')) {
    variables.emplace_back(forms::Trim(text.substr(0, end + 1)));
    text.remove_prefix(end + 1);
  }
  return variables;
}

std::string TitleOf(ContactMethod method) {
  const std::string sample = SampleTitle(method);
  return "Edit" + sample.substr(sample.find(' '));
}

}  // namespace

frmQuickEditor::frmQuickEditor(const session::ScreenContext& context)
    : Form("frmQuickEditor"), Rules(context), editor(context), test_(context) {
  Add("lblHelp", lblHelp);
  Add("picEditor", editor);
  Add("db", db);
  db.Help.Visible = false;
  db.Extra.Caption = "Send &Test";
  db.Extra.Visible = true;
  db.Extra.Click = [this] { test_.Send(EditorType, [this] { return editor.Sample(); }); };
  db.OK.Click = [this] { db_OK(); };
  db.Cancel.Click = [this] { DoClose(); };
  AddProperties();
}

void frmQuickEditor::AddProperties() {
  Properties["Title"] = Named(Title);
  Properties["LanguageType"] = Named(LanguageType);
  Properties["EditorType"] = Named(EditorType);
  Properties["emsRecordType"] = Named(emsRecordType);
  Properties["EditorVariables"] = {nullptr, [this](const std::string& text) { EditorVariables = VariablesOf(text); }};
  Properties["Text"] = Named(Text);
  Properties["AppointmentPeriod"] = Named(AppointmentPeriod);
  Properties["TotalPeriod"] = Named(TotalPeriod);
  Properties["WpHelpText"] = Named(WpHelpText);
  Properties["ShowPreview"] = Named(ShowPreview);
  Properties["PreviewOnly"] = Named(PreviewOnly);
  Properties["ShowCommands"] = Named(ShowCommands);
  Properties["AutoApplyReturnMessageVisible"] = Named(AutoApplyReturnMessageVisible);
  Properties["AutoApplyReturnMessageValue"] = Named(AutoApplyReturnMessageValue);
  Properties["PlainText"] = {[this] { return plain_text_; }, nullptr};
  Properties["Modified"] = {[this] { return modified_ ? "True" : "False"; }, nullptr};
  Properties["Canceled"] = {[this] { return canceled_ ? "True" : "False"; }, nullptr};
}

const std::string& frmQuickEditor::PlaceKey() const {
  static const std::string key = "QUICKEDIT";
  return key;
}

void frmQuickEditor::OnLoad() {
  if (!Attempt([this] { Read(); })) {
    Close();
  }
}

void frmQuickEditor::Read() {
  lblHelp.Caption = WpHelpText;
  lblHelp.Visible = !WpHelpText.empty();
  db.Visible = ShowCommands;
  previews_ = PreviewOnly;
  editor.Show({.kind = emsRecordType,
               .method = EditorType,
               .language = LanguageType,
               .text = Text,
               .variables = EditorVariables,
               .appointment_period = AppointmentPeriod,
               .total_period = TotalPeriod,
               .may_add_instructions = AutoApplyReturnMessageVisible,
               .adds_instructions = AutoApplyReturnMessageValue,
               .read_only = !ShowCommands});
  plain_text_ = editor.PlainText();
  ShowMode();
  (previews_ ? editor.txSample : editor.qe).SetFocus();
}

void frmQuickEditor::ShowMode() {
  Caption = previews_ ? SampleTitle(EditorType) : Title.empty() ? TitleOf(EditorType) : Title;
  editor.ShowParts(!previews_, previews_ || ShowPreview);
  db.OK.Caption = previews_ ? "&Edit" : "&OK";
  db.Cancel.Caption = previews_ ? "&Close" : "&Cancel";
}

void frmQuickEditor::db_OK() {
  if (previews_) {
    previews_ = false;
    ShowMode();
    editor.qe.SetFocus();
  } else {
    Take();
    Close();
  }
}

void frmQuickEditor::Take() {
  Text = editor.Stored();
  plain_text_ = editor.PlainText();
  AutoApplyReturnMessageValue = editor.AddsInstructions();
  modified_ = editor.Modified();
  canceled_ = false;
}

bool frmQuickEditor::QueryClose() {
  return !editor.Modified() || context_.user.Ask({.text = "Are you sure that you want to exit and discard the changes?",
                                                  .buttons = forms::kYesNo,
                                                  .icon = forms::Icon::Question,
                                                  .default_answer = forms::Answer::No}) == forms::Answer::Yes;
}

}  // namespace recall
