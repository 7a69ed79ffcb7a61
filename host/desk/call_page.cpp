#include "desk/call_page.h"

#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/wupdlock.h>

#include "views/accessible_name.h"
#include "views/binding.h"
#include "views/text_binders.h"

namespace host {

using views::FromWx;
using views::ToWx;

CallPage::CallPage(wxWindow* parent, std::function<void(const std::string& outcome)> on_called)
    : wxPanel(parent), on_called_(std::move(on_called)) {
  SetName("call page");
  const int gap = FromDIP(8);
  auto* page = new wxBoxSizer(wxVERTICAL);

  title_ = new wxStaticText(this, wxID_ANY, {});
  title_->SetName("title");
  title_->SetFont(title_->GetFont().Bold().Scaled(1.2F));
  page->Add(title_, wxSizerFlags().Expand().Border(wxALL, gap));

  fields_ = new wxScrolledWindow(this);
  fields_->SetName("arguments");
  fields_->SetScrollRate(0, FromDIP(12));
  page->Add(fields_, wxSizerFlags(3).Expand().Border(wxLEFT | wxRIGHT, gap));
  call_ = new wxButton(this, wxID_ANY, "&Call");
  call_->SetName("call");
  call_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Call(); });
  page->Add(call_, wxSizerFlags().Right().Border(wxALL, gap));

  auto* box = new wxStaticBoxSizer(wxVERTICAL, this, "Outcome");
  box->GetStaticBox()->SetName("group Outcome");
  outcome_ = new wxListCtrl(box->GetStaticBox(), wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT);
  outcome_->SetName("outcome");
  views::SetAccessibleName(*outcome_, "Outcome");
  outcome_->AppendColumn("Name", wxLIST_FORMAT_LEFT, views::FieldWidth(*outcome_, 28));
  outcome_->AppendColumn("Value");
  outcome_->SetMinSize(wxSize(-1, outcome_->GetCharHeight() * 7));
  outcome_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    outcome_->SetColumnWidth(1, outcome_->GetClientSize().x - outcome_->GetColumnWidth(0));
  });
  box->Add(outcome_, wxSizerFlags(1).Expand().Border(wxALL, gap / 2));
  page->Add(box, wxSizerFlags(2).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetSizer(page);
}

void CallPage::Choose(const wxString& title, const entry::Dispatch& members, const std::string& method,
                      const entry::Arguments& preset) {
  const wxWindowUpdateLocker whole(this);
  title_->SetLabelText(title);
  members_ = members;
  method_ = members_.Find(method);
  preset_ = preset;
  arguments_.clear();
  properties_.clear();
  outcome_->DeleteAllItems();
  fields_->DestroyChildren();

  auto* rows = new wxFlexGridSizer(2, FromDIP(wxSize(10, 4)));
  rows->AddGrowableCol(1);
  for (const entry::Parameter& parameter : method_->parameters) {
    arguments_.push_back(MakeField(rows, parameter.name, {}));
  }
  for (const auto& [name, property] : members_.properties) {
    if (property.get && property.set && !preset_.contains(name)) {
      properties_.push_back(MakeField(rows, name, property.get()));
    }
  }
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(rows, wxSizerFlags().Expand().Border(wxRIGHT, FromDIP(4)));
  fields_->SetSizer(inside);
  fields_->FitInside();
  Layout();
}

void CallPage::ShowEvent(const std::string& event, const std::string& arguments) {
  Add(event, arguments);
}

// A truth value is a box to tick; everything else is typed.
CallPage::Field CallPage::MakeField(wxSizer* rows, const std::string& name, const std::string& value) {
  auto* caption = new wxStaticText(fields_, wxID_ANY, ToWx(name));
  caption->SetName("caption " + ToWx(name));
  rows->Add(caption, wxSizerFlags().CenterVertical());
  if (value == "True" || value == "False") {
    auto* box = new wxCheckBox(fields_, wxID_ANY, {});
    box->SetName(ToWx(name));
    views::SetAccessibleName(*box, name);
    box->SetValue(value == "True");
    rows->Add(box, wxSizerFlags().CenterVertical());
    return {name, [box] { return std::string(box->GetValue() ? "True" : "False"); },
            [box](const std::string& text) { box->SetValue(text == "True"); }};
  }
  auto* text = new wxTextCtrl(fields_, wxID_ANY, ToWx(value));
  views::SizeField(*text, 20);
  text->SetName(ToWx(name));
  views::SetAccessibleName(*text, name);
  rows->Add(text, wxSizerFlags().Expand());
  return {name, [text] { return FromWx(text->GetValue()); },
          [text](const std::string& shown) { text->ChangeValue(ToWx(shown)); }};
}

void CallPage::Call() {
  if (method_ == nullptr) {
    return;
  }
  outcome_->DeleteAllItems();
  told_.clear();
  try {
    Invoke();
  } catch (const std::exception& error) {
    Add("refused", error.what());
  }
  on_called_(method_->name + (told_.empty() ? " returned" : ": " + told_));
}

// An argument left empty is left out: the method takes its default.
void CallPage::Invoke() {
  for (const auto& [name, value] : preset_) {
    members_.properties.at(name).set(value);
  }
  for (const Field& field : properties_) {
    members_.properties.at(field.name).set(field.get());
  }
  entry::Arguments arguments;
  for (const Field& field : arguments_) {
    if (std::string value = field.get(); !value.empty()) {
      arguments[field.name] = std::move(value);
    }
  }
  const std::string returned = method_->invoke(arguments);
  ShowOutcome(arguments, returned);
}

void CallPage::ShowOutcome(const entry::Arguments& arguments, const std::string& returned) {
  if (!returned.empty()) {
    Add("return", returned);
  }
  for (const entry::Parameter& parameter : method_->parameters) {
    if (const auto value = arguments.find(parameter.name); parameter.by_reference && value != arguments.end()) {
      Add(parameter.name, value->second);
    }
  }
  for (const Field& field : properties_) {
    if (const std::string now = members_.properties.at(field.name).get(); now != field.get()) {
      field.set(now);
      Add(field.name, now);
    }
  }
}

void CallPage::Add(const std::string& name, const std::string& value) {
  const long row = outcome_->InsertItem(outcome_->GetItemCount(), ToWx(name));
  outcome_->SetItem(row, 1, ToWx(value));
  told_ += (told_.empty() ? "" : ", ") + name + " = " + value;
  on_called_(told_);
}

}  // namespace host
