#include "views/panel_binders.h"

#include <wx/sizer.h>
#include <wx/timer.h>

#include "views/form_dialog.h"

#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

namespace views {
namespace {

// On Windows what is beside the panel, and in its way, would paint over it.
void KeepBehind(const wxWindow& panel) {
#ifdef __WXMSW__
  for (const wxWindow* beside : panel.GetParent()->GetChildren()) {
    SetWindowLongPtrW(beside->GetHandle(), GWL_STYLE,
                      GetWindowLongPtrW(beside->GetHandle(), GWL_STYLE) | WS_CLIPSIBLINGS);
  }
#else
  (void)panel;
#endif
}

class DropBinding : public Binding {
 public:
  DropBinding(forms::DropPanel& control, wxPanel& widget) : Binding(control, widget), panel_(control) {
    widget.Bind(wxEVT_IDLE, [this](wxIdleEvent&) { Place(); });
  }

 protected:
  void Refresh(forms::Aspect /*aspect*/) override { Place(); }

 private:
  const Binding* Field() const { return panel_.Below == nullptr ? nullptr : Dialog().Find(*panel_.Below.get()); }

  // The field may change, and move, while the panel is down.
  void Place() {
    const Binding* under = panel_.Visible ? Field() : nullptr;
    if (under == nullptr) {
      return;
    }
    wxWindow& panel = Widget();
    const wxWindow& field = under->Widget();
    const wxSize room = panel.GetParent()->GetClientSize();
    const wxPoint top = panel.GetParent()->ScreenToClient(field.GetScreenPosition());
    wxPoint corner(top.x, top.y + field.GetSize().y);
    if (corner.y + panel.GetSize().y > room.y && top.y >= panel.GetSize().y) {
      corner.y = top.y - panel.GetSize().y;
    }
    corner.x = std::max(0, std::min(corner.x, room.x - panel.GetSize().x));
    if (panel.GetPosition() != corner) {
      KeepBehind(panel);
      panel.GetParent()->RefreshRect(panel.GetRect());
      panel.Move(corner);
      panel.Raise();
    }
  }

  forms::DropPanel& panel_;
};

// No time passes while something modal stands before the dialog.
class TimerRunner : public forms::ControlObserver {
 public:
  TimerRunner(forms::Timer& control, const FormDialog& dialog) : timer_(control) {
    ticks_.SetOwner(&ticks_);
    ticks_.Bind(wxEVT_TIMER, [this, &dialog](wxTimerEvent&) {
      if (!dialog.Covered()) {
        timer_.DoElapse();
      }
    });
    timer_.Watch(this);
    ControlChanged(timer_, forms::Aspect::State);
  }
  TimerRunner(const TimerRunner&) = delete;
  TimerRunner& operator=(const TimerRunner&) = delete;
  ~TimerRunner() override { timer_.Watch(nullptr); }

  void ControlChanged(forms::Control& /*control*/, forms::Aspect /*aspect*/) override {
    if (!timer_.Enabled) {
      ticks_.Stop();
    } else if (!ticks_.IsRunning() || ticks_.GetInterval() != timer_.Interval) {
      ticks_.Start(std::max(1, timer_.Interval.get()));
    }
  }

 private:
  forms::Timer& timer_;
  wxTimer ticks_;
};

}  // namespace

wxPanel* MakePanel(wxWindow* parent, forms::Panel& control) {
  auto* panel = new wxPanel(parent);
  FormDialog::Of(*parent).Attach<Binding>(control, *panel);
  return panel;
}

wxPanel* MakeDropPanel(wxWindow* parent, forms::DropPanel& control) {
  auto* panel = new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_RAISED);
  panel->Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent& event) {
    event.GetDC()->SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE)));
    event.GetDC()->Clear();
  });
  FormDialog::Of(*parent).Attach<DropBinding>(control, *panel);
  return panel;
}

void RunTimer(FormDialog& dialog, forms::Timer& control) {
  dialog.Keep(std::make_unique<TimerRunner>(control, dialog));
}

}  // namespace views
