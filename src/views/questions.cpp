#include "views/questions.h"

#include <wx/artprov.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "views/accessible_name.h"
#include "views/binding.h"
#include "views/placing.h"
#include "views/text_binders.h"

namespace views {
namespace {

constexpr int kWrapCharacters = 64;
constexpr std::size_t kScrollFrom = 1500;  // characters

// Line breaks come as CR, LF or both.
wxString Lines(const std::string& text) {
  wxString lines = ToWx(text);
  lines.Replace("\r\n", "\n");
  lines.Replace("\r", "\n");
  return lines;
}

wxBitmapBundle Picture(forms::Icon icon) {
  switch (icon) {
    case forms::Icon::Information:
      return wxArtProvider::GetBitmapBundle(wxART_INFORMATION, wxART_MESSAGE_BOX);
    case forms::Icon::Question:
      return wxArtProvider::GetBitmapBundle(wxART_QUESTION, wxART_MESSAGE_BOX);
    case forms::Icon::Exclamation:
      return wxArtProvider::GetBitmapBundle(wxART_WARNING, wxART_MESSAGE_BOX);
    case forms::Icon::Critical:
      return wxArtProvider::GetBitmapBundle(wxART_ERROR, wxART_MESSAGE_BOX);
    case forms::Icon::None:
      break;
  }
  return {};
}

wxWindow* MakeText(wxWindow* parent, const wxString& text) {
  const int width = parent->GetCharWidth() * kWrapCharacters;
  if (text.length() >= kScrollFrom) {
    auto* scrolling = new wxTextCtrl(parent, wxID_ANY, text, wxDefaultPosition,
                                     wxSize(width, parent->GetCharHeight() * 16), wxTE_MULTILINE | wxTE_READONLY);
    scrolling->SetName("message text");
    return scrolling;
  }
  auto* label = new wxStaticText(parent, wxID_ANY, {});
  label->SetLabelText(text);
  label->Wrap(width);
  label->SetName("message text");
  return label;
}

// OK and Cancel at the right, named for the layout test and for assistive tools.
wxSizer* MakeOkCancel(wxDialog& dialog) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->AddStretchSpacer();
  for (const auto& [id, caption] : {std::pair(wxID_OK, "&OK"), std::pair(wxID_CANCEL, "&Cancel")}) {
    auto* button = new wxButton(&dialog, id, caption);
    button->SetName(wxControl::RemoveMnemonics(caption));
    row->Add(button, wxSizerFlags().Border(wxLEFT, dialog.FromDIP(6)));
    if (id == wxID_OK) {
      button->SetDefault();
    }
  }
  return row;
}

}  // namespace

MessageDialog::MessageDialog(wxWindow* parent, const forms::Message& message)
    : Dialog(parent, ToWx(message.title)),
      chosen_(std::ranges::find(message.buttons, forms::Answer::Cancel) != message.buttons.end()
                  ? forms::Answer::Cancel
                  : message.buttons.back()) {
  SetName("message");
  const int gap = FromDIP(12);
  auto* middle = new wxBoxSizer(wxHORIZONTAL);
  if (const wxBitmapBundle picture = Picture(message.icon); picture.IsOk()) {
    auto* icon = new wxStaticBitmap(this, wxID_ANY, picture);
    icon->SetName("icon");
    middle->Add(icon, wxSizerFlags().Border(wxRIGHT, gap));
  }
  middle->Add(MakeText(this, Lines(message.text)), wxSizerFlags(1).CenterVertical());

  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->AddStretchSpacer();
  for (const forms::Answer answer : message.buttons) {
    const wxString caption = ToWx(Caption(answer));
    auto* button = new wxButton(this, wxID_ANY, "&" + caption);
    button->SetName(caption);
    button->Bind(wxEVT_BUTTON, [this, answer](wxCommandEvent&) {
      chosen_ = answer;
      EndModal(wxID_OK);
    });
    row->Add(button, wxSizerFlags().Border(wxLEFT, FromDIP(6)));
    if (answer == message.Default()) {
      button->SetDefault();
      button->SetFocus();
    }
  }
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { EndModal(wxID_CANCEL); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE) {
      EndModal(wxID_CANCEL);
    } else {
      event.Skip();
    }
  });

  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(middle, wxSizerFlags(1).Expand().Border(wxALL, gap));
  page->Add(row, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetSizerAndFit(page);
  PlaceInMiddle(*this);
}

InputDialog::InputDialog(wxWindow* parent, const forms::InputBox& box)
    : Dialog(parent, ToWx(box.title)),
      text_(new wxTextCtrl(this, wxID_ANY, ToWx(box.text), wxDefaultPosition, wxDefaultSize,
                           box.masked ? wxTE_PASSWORD : 0)) {
  SizeField(*text_, kWrapCharacters * 3 / 4);
  SetName("input");
  text_->SetName("field");
  SetAccessibleName(*text_, box.prompt);
  text_->SelectAll();
  text_->SetFocus();
  const int gap = FromDIP(12);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(MakeText(this, Lines(box.prompt)), wxSizerFlags().Expand().Border(wxALL, gap));
  page->Add(text_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  page->Add(MakeOkCancel(*this), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetSizerAndFit(page);
  PlaceInMiddle(*this);
}

std::string InputDialog::Text() const {
  return FromWx(text_->GetValue());
}

CalendarDialog::CalendarDialog(wxWindow* parent, std::string_view title, std::chrono::year_month_day start)
    : Dialog(parent, ToWx(title)),
      calendar_(new wxCalendarCtrl(this, wxID_ANY,
                                   wxDateTime(static_cast<wxDateTime::wxDateTime_t>(static_cast<unsigned>(start.day())),
                                              static_cast<wxDateTime::Month>(static_cast<unsigned>(start.month()) - 1),
                                              static_cast<int>(start.year())))) {
  SetName("calendar");
  calendar_->SetName("days");
  SetAccessibleName(*calendar_, std::string(title));
  calendar_->Bind(wxEVT_CALENDAR_DOUBLECLICKED, [this](wxCalendarEvent&) { EndModal(wxID_OK); });
  calendar_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER) {
      EndModal(wxID_OK);
    } else {
      event.Skip();
    }
  });
  calendar_->SetFocus();
  const int gap = FromDIP(12);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(calendar_, wxSizerFlags(1).Expand().Border(wxALL, gap));
  page->Add(MakeOkCancel(*this), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetSizerAndFit(page);
  PlaceInMiddle(*this);
}

std::chrono::year_month_day CalendarDialog::Day() const {
  const wxDateTime day = calendar_->GetDate();
  return std::chrono::year(day.GetYear()) / (static_cast<int>(day.GetMonth()) + 1) / day.GetDay();
}

}  // namespace views
