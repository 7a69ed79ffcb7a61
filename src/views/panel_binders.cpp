#include "views/panel_binders.h"

#include <wx/sizer.h>
#include <wx/timer.h>

#include <algorithm>
#include <array>
#include <vector>

#include "views/form_window.h"
#include "views/readable.h"
#include "views/text_binders.h"

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

// Themes let what is behind a tip shine through.
wxColour Opaque(wxSystemColour which) {
  const wxColour color = wxSystemSettings::GetColour(which);
  return {color.Red(), color.Green(), color.Blue()};
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

  // Below the field, or above it where there is more room.
  virtual wxPoint Corner(const wxRect& field, wxSize size, wxSize room) const {
    const bool above = field.GetBottom() + 1 + size.y > room.y && field.y > size.y;
    return {std::max(0, std::min(field.x, room.x - size.x)), above ? field.y - size.y - 1 : field.GetBottom() + 1};
  }

  // The field may change, and move, while the panel is down.
  void Place() {
    const Binding* under = panel_.Visible ? Field() : nullptr;
    if (under == nullptr) {
      return;
    }
    wxWindow& panel = Widget();
    const wxWindow& field = under->Widget();
    const wxPoint corner = Corner(wxRect(panel.GetParent()->ScreenToClient(field.GetScreenPosition()), field.GetSize()),
                                  panel.GetSize(), panel.GetParent()->GetClientSize());
    if (panel.GetPosition() != corner) {
      KeepBehind(panel);
      panel.GetParent()->RefreshRect(panel.GetRect());
      panel.Move(corner);
      panel.Raise();
    }
  }

  forms::DropPanel& panel_;
};

class BalloonBinding : public DropBinding {
 public:
  using DropBinding::DropBinding;

 private:
  wxPoint Corner(const wxRect& field, wxSize size, wxSize room) const override {
    const int gap = Widget().FromDIP(4);
    const int x = std::max(gap, std::min(field.x, room.x - size.x - gap));
    const int y = std::max(0, std::min(field.y, room.y - size.y));
    const std::array spots = {wxPoint(x, field.GetBottom() + 1 + gap), wxPoint(x, field.y - size.y - gap),
                              wxPoint(field.GetRight() + 1 + gap, y), wxPoint(field.x - size.x - gap, y)};
    const auto clear = [&](const wxPoint& spot) {
      const wxRect there(spot, size);
      return wxRect(room).Contains(there) &&
             std::ranges::none_of(Dropped(), [&](const wxRect& panel) { return panel.Intersects(there); });
    };
    const auto spot = std::ranges::find_if(spots, clear);
    return spot == spots.end() ? spots.front() : *spot;
  }

  // Where the other panels are that have dropped.
  std::vector<wxRect> Dropped() const {
    std::vector<wxRect> places;
    for (const forms::Control* control : Dialog().Form().Controls()) {
      const Binding* binding =
          dynamic_cast<const forms::DropPanel*>(control) == nullptr ? nullptr : Dialog().Find(*control);
      if (binding != nullptr && binding != this && control->Visible) {
        places.push_back(binding->Widget().GetRect());
      }
    }
    return places;
  }
};

// The balloon's text, in lines that are read at a glance.
class BalloonText : public Binding {
 public:
  BalloonText(forms::Label& control, wxStaticText& widget) : Binding(control, widget), label_(control), text_(widget) {
    text_.Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { label_.DoClick(); });
  }

 protected:
  void Refresh(forms::Aspect aspect) override {
    text_.SetForegroundColour(ReadableOn(Opaque(wxSYS_COLOUR_INFOBK), Opaque(wxSYS_COLOUR_INFOTEXT)));
    if (aspect == forms::Aspect::Value) {
      constexpr int kLetters = 36;
      wxString lines = ToWx(label_.Caption.get());
      lines.Replace("\r\n", "\n");
      text_.SetLabelText(lines);
      text_.Wrap(FieldWidth(text_, kLetters));
      text_.GetParent()->Fit();
    }
  }

 private:
  forms::Label& label_;
  wxStaticText& text_;
};

// A panel that hides what it lies over.
wxPanel* MakeFloating(wxWindow* parent, long style, wxSystemColour ground) {
  auto* panel = new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, style);
  panel->Bind(wxEVT_ERASE_BACKGROUND, [ground](wxEraseEvent& event) {
    event.GetDC()->SetBackground(wxBrush(Opaque(ground)));
    event.GetDC()->Clear();
  });
  return panel;
}

// No time passes while something modal stands before the dialog.
class TimerRunner : public forms::ControlObserver {
 public:
  TimerRunner(forms::Timer& control, const FormWindow& dialog) : timer_(control) {
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
  FormWindow::Of(*parent).Attach<Binding>(control, *panel);
  return panel;
}

wxPanel* MakeDropPanel(wxWindow* parent, forms::DropPanel& control) {
  wxPanel* panel = MakeFloating(parent, wxTAB_TRAVERSAL | wxBORDER_RAISED, wxSYS_COLOUR_BTNFACE);
  FormWindow::Of(*parent).Attach<DropBinding>(control, *panel);
  return panel;
}

wxPanel* MakeBalloon(wxWindow* parent, forms::DropPanel& control, forms::Label& text) {
  auto* balloon = MakeFloating(parent, wxBORDER_SIMPLE, wxSYS_COLOUR_INFOBK);
  auto* label = new wxStaticText(balloon, wxID_ANY, {});
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(label, wxSizerFlags().Border(wxALL, balloon->FromDIP(8)));
  balloon->SetSizer(inside);
  auto& dialog = FormWindow::Of(*parent);
  dialog.Attach<BalloonBinding>(control, *balloon);
  dialog.Attach<BalloonText>(text, *label);
  return balloon;
}

void RunTimer(FormWindow& dialog, forms::Timer& control) {
  dialog.Keep(std::make_unique<TimerRunner>(control, dialog));
}

}  // namespace views
