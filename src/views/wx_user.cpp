#include "views/wx_user.h"

#include <wx/clipbrd.h>
#include <wx/colordlg.h>
#include <wx/dirdlg.h>
#include <wx/filedlg.h>

#include <stdexcept>

#include "views/print_preview.h"
#include "views/questions.h"
#include "views/typed_ahead.h"
#include "views/wait_window.h"

namespace views {
namespace {

// A statement that runs for longer is told of.
constexpr std::chrono::milliseconds kNotLong(700);

}  // namespace

// A dialog before all others, for as long as this lives.
class WxUser::OnTop {
 public:
  OnTop(WxUser& user, wxDialog& dialog) : user_(user), dialog_(dialog) {
    user_.wait_.reset();
    user_.running_.reset();
    user_.running_since_.reset();
    Cover(true);
    user_.open_.push_back(&dialog_);
    if (user_.OnShown) {
      dialog.CallAfter([&user, &dialog] { user.OnShown(dialog); });
    }
  }
  OnTop(const OnTop&) = delete;
  OnTop& operator=(const OnTop&) = delete;
  ~OnTop() {
    std::erase(user_.open_, &dialog_);
    if (user_.OnModalEnd) {
      user_.OnModalEnd();
    }
    Cover(false);
    user_.RaiseTop();
  }

 private:
  void Cover(bool covered) const {
    if (auto* below = dynamic_cast<FormWindow*>(user_.Top())) {
      below->SetCovered(covered);
    }
  }

  WxUser& user_;
  wxDialog& dialog_;
};

WxUser::WxUser(ViewRegistry registry, views::Pictures pictures)
    : registry_(std::move(registry)), pictures_(std::move(pictures)) {}

WxUser::~WxUser() = default;

forms::Answer WxUser::Ask(const forms::Message& message) {
  MessageDialog dialog(Top(), message);
  ShowModal(dialog);
  return dialog.Chosen();
}

std::optional<std::string> WxUser::Input(const forms::InputBox& box) {
  InputDialog dialog(Top(), box);
  return ShowModal(dialog) == wxID_OK ? std::optional(dialog.Text()) : std::nullopt;
}

void WxUser::Show(forms::Form& form) {
  form.Load();
  if (form.Closed()) {
    return;
  }
  FormDialog dialog(Top(), form, *this, pictures_, places_);
  if (!registry_.LayOut(dialog)) {
    throw std::logic_error("no view for " + form.Name());
  }
  const OnTop top(*this, dialog);
  dialog.Run();
}

std::optional<std::chrono::year_month_day> WxUser::PickDate(std::string_view title, std::chrono::year_month_day start) {
  CalendarDialog dialog(Top(), title, start);
  return ShowModal(dialog) == wxID_OK ? std::optional(dialog.Day()) : std::nullopt;
}

std::optional<std::string> WxUser::PickFile(const forms::FileChoice& choice) {
  wxFileDialog dialog(Top(), ToWx(choice.title), ToWx(choice.folder), ToWx(choice.name), ToWx(choice.pattern),
                      choice.for_writing ? wxFD_SAVE : wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  return ShowModal(dialog) == wxID_OK ? std::optional(FromWx(dialog.GetPath())) : std::nullopt;
}

std::optional<std::string> WxUser::PickFolder(std::string_view title) {
  wxDirDialog dialog(Top(), ToWx(title));
  return ShowModal(dialog) == wxID_OK ? std::optional(FromWx(dialog.GetPath())) : std::nullopt;
}

std::optional<forms::Color> WxUser::PickColor(forms::Color start) {
  wxColourData data;
  data.SetColour(wxColour(start.red, start.green, start.blue));
  wxColourDialog dialog(Top(), &data);
  if (ShowModal(dialog) != wxID_OK) {
    return std::nullopt;
  }
  const wxColour chosen = dialog.GetColourData().GetColour();
  return forms::Color{chosen.Red(), chosen.Green(), chosen.Blue()};
}

void WxUser::Wait(std::string_view text, double done) {
  if (text.empty()) {
    wait_.reset();
    return;
  }
  if (wait_ == nullptr) {
    wait_ = std::make_unique<WaitWindow>(Top());
  }
  wait_->Tell(text, done);
}

bool WxUser::WaitOrGiveUp(std::string_view text, double done) {
  Wait(text, done);
  return wait_ != nullptr && wait_->PulseOrGiveUp();
}

void WxUser::Copy(std::string_view text) {
  if (const wxClipboardLocker clipboard; !!clipboard) {
    wxTheClipboard->SetData(new wxTextDataObject(ToWx(text)));
    wxTheClipboard->Flush();
  }
}

bool WxUser::Print(const forms::Report& report) {
  PrintPreview preview(Top(), *this, report);
  ShowModal(preview);
  return preview.Printed();
}

bool WxUser::Pulse(session::Busy busy) {
  if (busy == session::Busy::Done) {
    running_since_.reset();
    const bool seen = (waiting_ != nullptr && waiting_->IsShown()) || (running_ != nullptr && running_->IsShown());
    waiting_.reset();
    running_.reset();
    if (seen) {
      RaiseTop();
    }
    return false;
  }
  if (busy == session::Busy::Waiting && waiting_ == nullptr) {
    running_.reset();
    waiting_ = std::make_unique<WaitWindow>(Top());
    waiting_->Tell("  Another program is using the database - Please Wait  ", -1);
  }
  WaitWindow* shown = waiting_ != nullptr ? waiting_.get() : wait_ != nullptr ? wait_.get() : RunningLong();
  if (busy == session::Busy::Reading && waiting_ == nullptr) {
    if (shown != nullptr) {
      shown->PulseUntilKey();
    }
    return shown != nullptr && shown->IsShown() && TakeEscape();
  }
  return shown != nullptr && shown->PulseOrGiveUp();
}

// Where nothing else says that there is something to wait for; nullptr for a moment.
WaitWindow* WxUser::RunningLong() {
  const auto now = std::chrono::steady_clock::now();
  if (!running_since_) {
    running_since_ = now;
  }
  if (running_ == nullptr && now - *running_since_ > kNotLong) {
    running_ = std::make_unique<WaitWindow>(Top());
    running_->Tell("  Waiting for the database - Please Wait  ", -1);
  }
  return running_.get();
}

// Not every display gives the keyboard back by itself.
void WxUser::RaiseTop() const {
  if (wxWindow* top = Top(); top != nullptr && top->IsShown()) {
    top->Raise();
  }
}

int WxUser::ShowModal(wxDialog& dialog) {
  const OnTop top(*this, dialog);
  return dialog.ShowModal();
}

}  // namespace views
