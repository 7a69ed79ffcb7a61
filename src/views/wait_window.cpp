#include "views/wait_window.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/utils.h>

#include "views/binding.h"

#ifdef __WXGTK__
// Of the library that the toolkit stands on; it brings no headers of its own.
struct GtkWindow;
extern "C" void gtk_window_set_modal(GtkWindow* window, int modal);
#endif

namespace views {
namespace {

constexpr std::chrono::milliseconds kMoment(300);
constexpr std::chrono::milliseconds kBetweenPulses(40);
constexpr int kSteps = 1000;

}  // namespace

WaitWindow::WaitWindow(wxWindow* parent)
    : wxFrame(
          parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
          wxFRAME_NO_TASKBAR | wxFRAME_TOOL_WINDOW | wxBORDER_NONE | (parent != nullptr ? wxFRAME_FLOAT_ON_PARENT : 0)),
      since_(std::chrono::steady_clock::now()) {
  SetName("wait");
  auto* edge = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_SIMPLE);
  edge->SetName("edge");
  text_ = new wxStaticText(edge, wxID_ANY, {});
  text_->SetName("wait text");
  gauge_ = new wxGauge(edge, wxID_ANY, kSteps);
  gauge_->SetName("done");
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(text_, wxSizerFlags().Center().Border(wxALL, FromDIP(14)));
  inside->Add(gauge_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(14)));
  give_up_ = new wxButton(edge, wxID_CANCEL);
  give_up_->SetName("give up");
  give_up_->Hide();
  give_up_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { given_up_ = true; });
  inside->Add(give_up_, wxSizerFlags().Center().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(14)));
  hint_ = new wxStaticText(edge, wxID_ANY, "Esc ends it");
  hint_->SetName("hint");
  hint_->Hide();
  inside->Add(hint_, wxSizerFlags().Center().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(14)));
  // Who types on has not seen the window yet: no other key does anything.
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { given_up_ = given_up_ || event.GetKeyCode() == WXK_ESCAPE; });
  edge->SetSizer(inside);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(edge, wxSizerFlags(1).Expand());
  SetSizer(page);
}

WaitWindow::~WaitWindow() = default;

void WaitWindow::Tell(std::string_view text, double done) {
  text_->SetLabelText(ToWx(text));
  known_ = done >= 0;
  if (known_) {
    gauge_->SetValue(static_cast<int>(done * kSteps));
  }
  GetSizer()->SetSizeHints(this);
  CentreOnParent();
  Pulse();
}

void WaitWindow::Pulse() {
  const auto now = std::chrono::steady_clock::now();
  if (now - since_ < kMoment || now - pulsed_ < kBetweenPulses) {
    return;
  }
  pulsed_ = now;
  if (offered_ && others_ == nullptr) {
    Show();
    KeepOthersDeaf();
  } else if (!IsShown()) {
    ShowWithoutActivating();
  }
  if (!known_) {
    gauge_->Pulse();
  }
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive(); loop != nullptr && !loop->IsYielding()) {
    loop->YieldFor(offered_ ? wxEVT_CATEGORY_UI | wxEVT_CATEGORY_USER_INPUT : wxEVT_CATEGORY_UI);
  }
}

bool WaitWindow::PulseOrGiveUp() {
  if (!offered_) {
    offered_ = true;
    Add(*give_up_);
  }
  Pulse();
  return given_up_;
}

void WaitWindow::PulseUntilKey() {
  if (!hint_->IsShown()) {
    Add(*hint_);
  }
  Pulse();
}

void WaitWindow::Add(wxWindow& part) {
  part.Show();
  GetSizer()->SetSizeHints(this);
  CentreOnParent();
}

void WaitWindow::KeepOthersDeaf() {
  others_ = std::make_unique<wxWindowDisabler>(this);
#ifdef __WXGTK__
  // A modal dialog behind it keeps what is meant for this window.
  gtk_window_set_modal(reinterpret_cast<GtkWindow*>(GetHandle()), 1);
#endif
}

}  // namespace views
