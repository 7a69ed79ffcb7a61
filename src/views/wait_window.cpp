#include "views/wait_window.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "views/binding.h"

namespace views {
namespace {

constexpr std::chrono::milliseconds kMoment(300);
constexpr int kSteps = 1000;

}  // namespace

WaitWindow::WaitWindow(wxWindow* parent)
    : wxFrame(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
              wxFRAME_NO_TASKBAR | wxFRAME_TOOL_WINDOW | wxBORDER_SIMPLE |
                  (parent != nullptr ? wxFRAME_FLOAT_ON_PARENT : 0)),
      text_(new wxStaticText(this, wxID_ANY, {})),
      gauge_(new wxGauge(this, wxID_ANY, kSteps)),
      since_(std::chrono::steady_clock::now()) {
  SetName("wait");
  text_->SetName("text");
  gauge_->SetName("done");
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(text_, wxSizerFlags().Center().Border(wxALL, FromDIP(14)));
  page->Add(gauge_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(14)));
  SetSizer(page);
}

void WaitWindow::Tell(std::string_view text, double done) {
  text_->SetLabelText(ToWx(text));
  gauge_->Show(done >= 0);
  if (done >= 0) {
    gauge_->SetValue(static_cast<int>(done * kSteps));
  }
  GetSizer()->SetSizeHints(this);
  CentreOnParent();
  Pulse();
}

void WaitWindow::Pulse() {
  if (!IsShown() && std::chrono::steady_clock::now() - since_ >= kMoment) {
    ShowWithoutActivating();
  }
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive(); IsShown() && loop != nullptr && !loop->IsYielding()) {
    loop->YieldFor(wxEVT_CATEGORY_UI);
  }
}

}  // namespace views
