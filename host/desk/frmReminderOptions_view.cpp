#include "desk/frmReminderOptions_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/grid_binder.h"
#include "views/text_binders.h"

namespace host {
namespace {

constexpr int kFieldWidth = 24;
constexpr int kTextWidth = 950;

void AddField(views::FieldGroup& group, frmReminderOptions& form, frmReminderOptions::Option option) {
  wxWindow* caption = views::MakeCaption(group.Box(), form.lblOption[option]);
  group.Row(caption, {views::MakeTextBox(group.Box(), form.txtOption[option], kFieldWidth)});
}

wxSizer* MailGroup(wxWindow* parent, frmReminderOptions& form) {
  views::FieldGroup group(parent, "E-mails");
  group.Row(nullptr, {views::MakeLabel(group.Box(), form.lblMail)});
  AddField(group, form, frmReminderOptions::kServer);
  wxWindow* security = views::MakeCaption(group.Box(), form.lblSecurity);
  group.Row(security, {views::MakeComboBox(group.Box(), form.cboSecurity, 20)});
  for (const auto option : {frmReminderOptions::kPort, frmReminderOptions::kUser, frmReminderOptions::kPassword,
                            frmReminderOptions::kSender, frmReminderOptions::kSenderName}) {
    AddField(group, form, option);
  }
  return group.Sizer();
}

wxSizer* TextGroup(wxWindow* parent, frmReminderOptions& form) {
  views::FieldGroup group(parent, "Text messages");
  group.Row(nullptr, {views::MakeLabel(group.Box(), form.lblText)});
  AddField(group, form, frmReminderOptions::kHook);
  AddField(group, form, frmReminderOptions::kToken);
  return group.Sizer();
}

wxSizer* OfficeGroup(wxWindow* parent, frmReminderOptions& form) {
  views::FieldGroup group(parent, "Texts of messages");
  AddField(group, form, frmReminderOptions::kConfirmation);
  for (const auto option : {frmReminderOptions::kTextReply, frmReminderOptions::kMailReply}) {
    wxWindow* caption = views::MakeCaption(group.Box(), form.lblOption[option]);
    group.Row(caption, {views::MakeTextBox(group.Box(), form.txtOption[option], kFieldWidth)});
  }
  AddField(group, form, frmReminderOptions::kOfficeName);
  AddField(group, form, frmReminderOptions::kWebsite);
  return group.Sizer();
}

wxSizer* OutboxPart(wxWindow* parent, frmReminderOptions& form) {
  const int gap = parent->FromDIP(6);
  const auto under = wxSizerFlags().Expand().Border(wxBOTTOM, gap);
  auto* list = new wxBoxSizer(wxVERTICAL);
  list->Add(views::MakeCaption(parent, form.lblOutbox), under);
  list->Add(views::MakeGrid(parent, form.TDBG, 3), wxSizerFlags(1).Expand());
  auto* message = new wxBoxSizer(wxVERTICAL);
  message->Add(views::MakeCaption(parent, form.lblMessage), under);
  message->Add(views::MakeTextBox(parent, form.txtMessage, 40, 4), wxSizerFlags(1).Expand());
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(list, wxSizerFlags(1).Expand().Border(wxRIGHT, 2 * gap));
  columns->Add(message, wxSizerFlags(1).Expand());
  auto* part = new wxBoxSizer(wxVERTICAL);
  part->Add(views::MakeWrapped(parent, form.lblFolder, parent->FromDIP(kTextWidth)), under);
  part->Add(columns, wxSizerFlags(1).Expand());
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->Add(views::MakeButton(parent, form.cmdFolder));
  buttons->Add(views::MakeButton(parent, form.cmdDelete), wxSizerFlags().Border(wxLEFT, gap));
  part->Add(buttons, wxSizerFlags().Border(wxTOP, gap));
  return part;
}

}  // namespace

void LayOut_frmReminderOptions(views::FormDialog& dialog, frmReminderOptions& form) {
  const int gap = dialog.FromDIP(8);
  const auto part = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(views::MakeWrapped(&dialog, form.lblProblem, dialog.FromDIP(kTextWidth)), part);
  auto* ways = new wxBoxSizer(wxHORIZONTAL);
  ways->Add(MailGroup(&dialog, form), wxSizerFlags(1).Expand().Border(wxRIGHT, gap));
  auto* texts = new wxBoxSizer(wxVERTICAL);
  texts->Add(TextGroup(&dialog, form), wxSizerFlags().Expand().Border(wxBOTTOM, gap));
  texts->Add(OfficeGroup(&dialog, form), wxSizerFlags().Expand());
  ways->Add(texts, wxSizerFlags(1).Expand());
  page->Add(ways, part);
  page->Add(OutboxPart(&dialog, form), wxSizerFlags(part).Proportion(1));
  page->Add(views::MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace host
