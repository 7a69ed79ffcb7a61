#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/tokenzr.h>

#include <utility>

#include "forms/check_list_box.h"
#include "forms/text.h"
#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/form_window.h"
#include "views/framed.h"
#include "views/text_binders.h"

#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

namespace views {
namespace {

// Asks the control for the entries that it paints.
class EntryList : public wxListCtrl {
 public:
  EntryList(wxWindow* parent, const forms::ListBox& list)
      : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                   wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL | wxLC_NO_HEADER),
        list_(list),
        checks_(dynamic_cast<const forms::CheckListBox*>(&list)) {
    EnableCheckBoxes(checks_ != nullptr);
  }

  bool OnGetItemIsChecked(long item) const override { return checks_->IsChecked(static_cast<int>(item)); }

  wxString OnGetItemText(long item, long column) const override {
    const auto& items = list_.Items.get();
    if (static_cast<std::size_t>(item) >= items.size()) {
      return {};
    }
    wxStringTokenizer cells(ToWx(items[static_cast<std::size_t>(item)].text), "\t", wxTOKEN_RET_EMPTY_ALL);
    wxString cell;
    for (long i = 0; i <= column; ++i) {
      cell = cells.GetNextToken();
    }
    return cell;
  }

#ifdef __WXMSW__
  // The form's rules see Enter first, as every key.
  bool MSWShouldPreProcessMessage(WXMSG* message) override {
    return message->message == WM_KEYDOWN || wxListCtrl::MSWShouldPreProcessMessage(message);
  }
#endif

 private:
  const forms::ListBox& list_;
  const forms::CheckListBox* checks_;
};

// The generic list keeps its entries in a window of its own.
wxWindow& EntriesOf(wxListCtrl& list) {
  return list.GetChildren().empty() ? list : *list.GetChildren().front();
}

void ShowCount(wxListCtrl& widget, const forms::ListBox& list) {
  widget.SetItemCount(static_cast<long>(list.Items->size()));
  widget.Refresh();
}

void ShowCurrent(wxListCtrl& widget, const forms::ListBox& list) {
  const long shown = widget.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
  const long wanted = list.Marked();
  if (shown == wanted) {
    return;
  }
  if (shown >= 0) {
    widget.SetItemState(shown, 0, wxLIST_STATE_SELECTED);
  }
  if (wanted >= 0 && wanted < widget.GetItemCount()) {
    constexpr long kBoth = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
    widget.SetItemState(wanted, kBoth, kBoth);
    widget.EnsureVisible(wanted);
  }
}

// The mouse button let go over an entry chooses it.
void OnEntryClick(wxListCtrl& widget, FormWindow& dialog, forms::ListBox& list) {
  EntriesOf(widget).Bind(wxEVT_LEFT_UP, [&](wxMouseEvent& event) {
    event.Skip();
    int where = 0;
    const long item = widget.HitTest(event.GetPosition(), where);
    if (item != wxNOT_FOUND) {
      dialog.CallAfter([&list, item] { list.DoPick(static_cast<int>(item)); });
    }
  });
}

class ListBinding : public Binding {
 public:
  ListBinding(forms::ListBox& control, wxListCtrl& widget) : Binding(control, widget), list_(control), widget_(widget) {
    widget_.Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) {
      const auto item = static_cast<int>(event.GetIndex());
      if (!showing_ && item != list_.ListIndex && Dialog().SyncFocus()) {
        list_.DoHighlight(item);
      }
    });
    if (auto* checks = dynamic_cast<forms::CheckListBox*>(&control); checks != nullptr) {
      BindChecks(*checks);
    }
    widget_.Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { list_.DoOpen(); });
    OnEntryClick(widget_, Dialog(), list_);
    BindMoving();
    EntriesOf(widget_).Bind(wxEVT_CHAR, [this](wxKeyEvent& event) {
      const wxChar character = event.GetKeyCode() == WXK_BACK ? wxChar(WXK_BACK) : event.GetUnicodeKey();
      const bool typed = character == WXK_BACK || (character >= WXK_SPACE && character != WXK_DELETE);
      if (list_.KeyPress && typed && !event.ControlDown() && !event.AltDown()) {
        list_.KeyPress(static_cast<char32_t>(character));
      } else {
        event.Skip();
      }
    });
  }

  wxWindow& FocusWidget() const override { return EntriesOf(widget_); }

 protected:
  void Refresh(forms::Aspect aspect) override {
    showing_ = true;
    if (aspect == forms::Aspect::Items) {
      ShowCount(widget_, list_);
    }
    if (aspect != forms::Aspect::State) {
      ShowCurrent(widget_, list_);
    }
    if (aspect == forms::Aspect::Value && widget_.HasCheckBoxes()) {
      widget_.Refresh();
    }
    showing_ = false;
  }

 private:
  // The mouse drags an entry, and Alt with an arrow moves the current one. What is bound last hears of the button
  // first: the click that ends a drag then chooses the entry that was dragged.
  void BindMoving() {
    wxWindow& entries = EntriesOf(widget_);
    widget_.Bind(wxEVT_LIST_BEGIN_DRAG, [this, &entries](wxListEvent& event) {
      if (list_.Moved) {
        dragged_ = static_cast<int>(event.GetIndex());
        entries.SetCursor(wxCursor(wxCURSOR_SIZENS));
      }
    });
    entries.Bind(wxEVT_LEFT_UP, [this, &entries](wxMouseEvent& event) {
      event.Skip();
      const int from = std::exchange(dragged_, -1);
      if (from >= 0) {
        int where = 0;
        const auto to = static_cast<int>(widget_.HitTest(event.GetPosition(), where));
        entries.SetCursor(wxNullCursor);
        Dialog().CallAfter([this, from, to] { list_.DoMove(from, to); });
      }
    });
    entries.Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
      const int key = event.GetKeyCode();
      const int step = key == WXK_UP ? -1 : key == WXK_DOWN ? 1 : 0;
      if (event.GetModifiers() != wxMOD_ALT || step == 0 || !list_.Moved) {
        event.Skip();
      } else if (Dialog().SyncFocus()) {
        list_.DoMove(list_.ListIndex, list_.ListIndex + step);
      }
    });
  }

  // Space turns the current entry on or off.
  void BindChecks(forms::CheckListBox& checks) {
    const auto tick = [this, &checks](int index, bool on) {
      if (!showing_ && Dialog().SyncFocus()) {
        checks.DoTick(index, on);
      }
      widget_.Refresh();
    };
    widget_.Bind(wxEVT_LIST_ITEM_CHECKED,
                 [tick](wxListEvent& event) { tick(static_cast<int>(event.GetIndex()), true); });
    widget_.Bind(wxEVT_LIST_ITEM_UNCHECKED,
                 [tick](wxListEvent& event) { tick(static_cast<int>(event.GetIndex()), false); });
    EntriesOf(widget_).Bind(wxEVT_KEY_DOWN, [tick, &checks](wxKeyEvent& event) {
      if (event.GetKeyCode() == WXK_SPACE && !event.HasAnyModifiers()) {
        tick(checks.ListIndex, !checks.IsChecked(checks.ListIndex));
      } else {
        event.Skip();
      }
    });
  }

  forms::ListBox& list_;
  wxListCtrl& widget_;
  int dragged_ = -1;  // the entry that the mouse drags
  bool showing_ = false;
};

class SearchBinding : public Binding {
 public:
  SearchBinding(forms::ComboBox& control, wxPanel& widget, wxTextCtrl& box, wxListCtrl& list)
      : Binding(control, widget), combo_(control), box_(box), list_(list) {
    box_.SetName(widget.GetName() + ".text");
    list_.SetName(widget.GetName() + ".list");
    box_.Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
      if (Dialog().SyncFocus()) {
        combo_.DoEdit(FromWx(box_.GetValue()));
      }
    });
    box_.Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
      const int step = event.GetKeyCode() == WXK_DOWN ? 1 : event.GetKeyCode() == WXK_UP ? -1 : 0;
      if (step == 0) {
        event.Skip();
      } else if (Dialog().SyncFocus()) {
        combo_.DoStep(step);
      }
    });
    OnEntryClick(list_, Dialog(), combo_);
  }

  wxWindow& FocusWidget() const override { return box_; }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect == forms::Aspect::Items) {
      ShowCount(list_, combo_);
    }
    if (aspect != forms::Aspect::State) {
      if (box_.GetValue() != ToWx(combo_.Text.get())) {
        box_.ChangeValue(ToWx(combo_.Text.get()));
        box_.SelectAll();
      }
      ShowCurrent(list_, combo_);
    }
  }

 private:
  forms::ComboBox& combo_;
  wxTextCtrl& box_;
  wxListCtrl& list_;
};

wxListCtrl* MakeEntries(wxWindow* parent, const forms::ListBox& control, const std::vector<int>& columns, int lines) {
  auto* list = new EntryList(parent, control);
  int width = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, list) + list->FromDIP(8);
  for (const int characters : columns) {
    const int column = FieldWidth(*list, characters + 2);
    list->AppendColumn({}, wxLIST_FORMAT_LEFT, column);
    width += column;
  }
  if (list->HasCheckBoxes()) {
    width += list->FromDIP(24);
  }
  list->SetInitialSize(wxSize(width, (list->GetCharHeight() + list->FromDIP(6)) * lines));
  return list;
}

}  // namespace

wxListCtrl* MakeListBox(wxWindow* parent, forms::ListBox& control, const std::vector<int>& columns, int lines) {
  wxListCtrl* list = MakeEntries(parent, control, columns, lines);
  FormWindow::Of(*parent).Attach<ListBinding>(control, *list);
  return list;
}

wxPanel* MakeListChooser(wxWindow* parent, forms::ListChooser& control, int characters, int lines) {
  auto* panel = new wxPanel(parent);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  const auto add_buttons = [&](std::initializer_list<forms::Button*> buttons) {
    auto* column = new wxBoxSizer(wxVERTICAL);
    for (forms::Button* button : buttons) {
      column->Add(MakeArrow(panel, *button), wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, panel->FromDIP(3)));
    }
    row->Add(column, wxSizerFlags().CenterVertical().Border(wxLEFT | wxRIGHT, panel->FromDIP(6)));
  };
  const auto add_list = [&](forms::ListBox& list) {
    auto* column = new wxBoxSizer(wxVERTICAL);
    if (list.Heading != nullptr) {
      column->Add(MakeCaption(panel, *list.Heading), wxSizerFlags().Border(wxBOTTOM, panel->FromDIP(3)));
    }
    column->Add(Framed(panel, [&](wxWindow* frame) { return MakeListBox(frame, list, {characters}, lines); }),
                wxSizerFlags(1).Expand());
    row->Add(column, wxSizerFlags(1).Expand());
  };
  add_list(control.Available);
  add_buttons({&control.Add, &control.AddAll, &control.Remove, &control.RemoveAll});
  add_list(control.Chosen);
  add_buttons({&control.Up, &control.Down});
  panel->SetSizer(row);
  FormWindow::Of(*parent).Attach<Binding>(control, *panel);
  return panel;
}

wxPanel* MakeSearchList(wxWindow* parent, forms::ComboBox& control, int characters, int lines) {
  auto* panel = new wxPanel(parent);
  auto* box = new wxTextCtrl(panel, wxID_ANY);
  SizeField(*box, characters);
  wxListCtrl* list = MakeEntries(panel, control, {characters}, lines);
  KeepOutOfTabOrder(EntriesOf(*list));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(box, wxSizerFlags().Expand());
  column->Add(list, wxSizerFlags(1).Expand());
  panel->SetSizer(column);
  FormWindow::Of(*parent).Attach<SearchBinding>(control, *panel, *box, *list);
  return panel;
}

}  // namespace views
