#include "forms/us_numbers.h"
#include "recall/RecallNotices.h"

namespace recall {
namespace {

constexpr std::string_view kOfficeSetup = "DEFAULT_OFFICE_SETUP";
constexpr std::string_view kReturnAddressSetting = "RECALL_SETUP_RECARD_RET_ADD";
constexpr std::string_view kOptions = "SESC_RECALL";
constexpr std::string_view kLabelFormat = "LABEL_FORMAT";

}  // namespace

// In the order in which the page is read.
void RecallNotices::Register() {
  Add("lblSendExplain", lblSendExplain);
  Add("lblSendMethod", lblSendMethod);
  Add("picSendMethod", picSendMethod);
  Add("chkReturnAddress", chkReturnAddress);
  Add("optReturnAddressPractice", optReturnAddressPractice);
  Add("optReturnAddressLocation", optReturnAddressLocation);
  Add("optReturnAddressProvider", optReturnAddressProvider);
  Add("lblReturnAddress", lblReturnAddress);
  Add("optLabelFormat", optLabelFormat);
  Add("lblNotice", lblNotice);
  Add("txtLetter", txtLetter);
  Add("txtPostCard", txtPostCard);
  Add("txtMessage", txtMessage);
  Add("txtEMail", txtEMail);
  Add("txtVoice", txtVoice);
  Add("txtVoiceSpanish", txtVoiceSpanish);
  Add("picWPEdit", picWPEdit);
  Add("picWPPreview", picWPPreview);
  Add("picWPOpen", picWPOpen);
  Add("lblWPPreview", lblWPPreview);
  Add("txWPPreview", txWPPreview);
  RegisterFields();
  lblSendMethod.Caption = "Send b&y";
  picSendMethod.Heading = &lblSendMethod;
  picSendMethod.ListIndex = 0;
  txWPPreview.Heading = &lblWPPreview;
  txWPPreview.ReadOnly = true;
  picWPOpen.ToolTip = "Links a file of the practice's letters, or takes the link away";
  picWPEdit.ToolTip = "Opens the text in its editor";
  chkReturnAddress.Caption = "Print a &return address on post cards";
  optReturnAddressPractice.Caption = "The &practice's";
  optReturnAddressLocation.Caption = "The office locat&ion's";
  optReturnAddressProvider.Caption = "The pro&vider's";
  lblReturnAddress.Caption = "Supervisors alone change it, for every recall.";
  constexpr std::array kLabels = {"&No labels", "&1 across", "&2 across", "&3 across"};
  for (std::size_t format = 0; format < optLabelFormat.size(); ++format) {
    optLabelFormat.at(format).Caption = kLabels.at(format);
    optLabelFormat.at(format).Click = [this] {
      if (SettingsEdited) {
        SettingsEdited();
      }
    };
  }
  const auto touched = [this] {
    ShowReturnAddress();
    if (SettingsEdited) {
      SettingsEdited();
    }
  };
  chkReturnAddress.Click = [this, touched] {
    if (chkReturnAddress.Value == forms::CheckState::On && addresses_.Chosen() < 0) {
      optReturnAddressPractice.Value = true;
    }
    touched();
  };
  for (forms::OptionButton* option :
       {&optReturnAddressPractice, &optReturnAddressLocation, &optReturnAddressProvider}) {
    option->Click = touched;
  }
}

void RecallNotices::RegisterFields() {
  const auto fields = Fields();
  for (std::size_t field = 0; field < fields.size(); ++field) {
    fields.at(field)->Heading = &lblNotice.at(field);
  }
  txtLetter.ReadOnly = true;
  for (forms::TextBox* plain : {&txtMessage, &txtVoice, &txtVoiceSpanish}) {
    plain->MultiLine = true;
  }
}

void RecallNotices::ReadSettings() {
  stored_address_ = session::ToId(session::Value(context_.session.OfficeSetting(kOfficeSetup, kReturnAddressSetting)));
  stored_address_ = stored_address_ < kNoAddress || stored_address_ > kProvider ? kNoAddress : stored_address_;
  chkReturnAddress.Value = stored_address_ == kNoAddress ? forms::CheckState::Off : forms::CheckState::On;
  optReturnAddressPractice.Value = stored_address_ == kPractice;
  optReturnAddressLocation.Value = stored_address_ == kLocation;
  optReturnAddressProvider.Value = stored_address_ == kProvider;
  stored_label_ = session::ToId(session::Value(context_.session.UserOption(kOptions, kLabelFormat)));
  stored_label_ = stored_label_ < 0 || stored_label_ > 3 ? 0 : stored_label_;
  optLabelFormat.at(static_cast<std::size_t>(stored_label_)).Value = true;
  ShowReturnAddress();
}

void RecallNotices::EnableSettings(bool on) {
  settings_enabled_ = on;
  for (forms::OptionButton& format : optLabelFormat) {
    format.Enabled = on;
  }
  ShowReturnAddress();
}

void RecallNotices::ShowReturnAddress() {
  const bool supervisor = context_.session.HasRight(session::kSupervisorRight);
  const bool may = supervisor && settings_enabled_;
  lblReturnAddress.Visible = !supervisor;
  chkReturnAddress.Enabled = may;
  for (forms::OptionButton* option :
       {&optReturnAddressPractice, &optReturnAddressLocation, &optReturnAddressProvider}) {
    option->Enabled = may && chkReturnAddress.Value == forms::CheckState::On;
  }
}

std::int32_t RecallNotices::ReturnAddressShown() const {
  return chkReturnAddress.Value == forms::CheckState::On ? addresses_.Chosen() + 1 : kNoAddress;
}

bool RecallNotices::SettingsChanged() const {
  return ReturnAddressShown() != stored_address_ || labels_.Chosen() != stored_label_;
}

void RecallNotices::SaveSettings() {
  if (ReturnAddressShown() != stored_address_) {
    context_.session.SetOfficeSetting(kOfficeSetup, kReturnAddressSetting, std::to_string(ReturnAddressShown()));
    stored_address_ = ReturnAddressShown();
  }
  if (labels_.Chosen() != stored_label_) {
    context_.session.SetUserOption(kOptions, kLabelFormat, std::to_string(labels_.Chosen()));
    stored_label_ = labels_.Chosen();
  }
}

}  // namespace recall
