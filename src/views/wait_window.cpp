#include "views/wait_window.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "views/binding.h"

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
  edge->SetSizer(inside);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(edge, wxSizerFlags(1).Expand());
  SetSizer(page);
}

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
  if (!IsShown()) {
    ShowWithoutActivating();
  }
  if (!known_) {
    gauge_->Pulse();
  }
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive(); loop != nullptr && !loop->IsYielding()) {
    loop->YieldFor(wxEVT_CATEGORY_UI);
  }
}

}  // namespace views
