#include "views/tab_binders.h"

#include "views/form_window.h"

namespace views {
namespace {

// The book shows and hides its pages.
class PageBinding : public Binding {
 public:
  using Binding::Binding;

 protected:
  void ShowVisible() override { Widget().Enable(Control().Enabled); }
};

class TabBinding : public Binding {
 public:
  TabBinding(forms::TabStrip& control, wxNotebook& widget, std::vector<wxPanel*> pages)
      : Binding(control, widget), tabs_(control), book_(widget), pages_(std::move(pages)) {
    book_.Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
      event.Skip();
      if (&book_ == event.GetEventObject() && !showing_) {
        Turn(IndexOf(event.GetSelection()));
      }
    });
    book_.Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
      const int key = event.GetKeyCode();
      const bool turns = event.GetModifiers() == wxMOD_CONTROL && (key == WXK_PAGEUP || key == WXK_PAGEDOWN);
      if (turns && Dialog().SyncFocus()) {
        Turn(tabs_.NextTab(key == WXK_PAGEDOWN ? 1 : -1));
      } else if (!turns) {
        event.Skip();
      }
    });
  }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect == forms::Aspect::State) {
      return;
    }
    const bool outer = !std::exchange(showing_, true);
    std::size_t place = 0;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
      ShowPage(*pages_[i], static_cast<int>(i), place);
    }
    if (const int front = tabs_.CurrTab; tabs_.HasTab(front)) {
      book_.ChangeSelection(static_cast<std::size_t>(book_.FindPage(pages_[static_cast<std::size_t>(front)])));
    }
    showing_ = !outer;
  }

 private:
  // Refused by a rule, the page that was in front comes back.
  void Turn(int index) {
    tabs_.DoTab(index);
    Refresh(forms::Aspect::Value);
  }

  int IndexOf(int place) const {
    const auto* page = place < 0 ? nullptr : book_.GetPage(static_cast<std::size_t>(place));
    return static_cast<int>(std::ranges::find(pages_, page) - pages_.begin());
  }

  // `place` is that of the next tab.
  void ShowPage(wxPanel& page, int index, std::size_t& place) {
    const int shown = book_.FindPage(&page);
    if (!tabs_.HasTab(index)) {
      if (shown != wxNOT_FOUND) {
        book_.RemovePage(static_cast<std::size_t>(shown));
        Dialog().LayOutSoon();
      }
      page.Hide();
      return;
    }
    const wxString caption = wxControl::RemoveMnemonics(ToWx(tabs_.Tabs.get()[static_cast<std::size_t>(index)]));
    if (shown == wxNOT_FOUND) {
      book_.InsertPage(place, &page, caption);
      Dialog().LayOutSoon();
    } else if (book_.GetPageText(place) != caption) {
      book_.SetPageText(place, caption);
    }
    ++place;
  }

  forms::TabStrip& tabs_;
  wxNotebook& book_;
  std::vector<wxPanel*> pages_;  // in the strip's order, with those that have no tab now
  bool showing_ = false;
};

}  // namespace

wxNotebook* MakeTabs(wxWindow* parent, forms::TabStrip& control) {
  auto* book = new wxNotebook(parent, wxID_ANY);
  auto& dialog = FormWindow::Of(*parent);
  std::vector<wxPanel*> pages;
  for (std::size_t i = 0; i < control.Tabs->size(); ++i) {
    auto* page = new wxPanel(book);
    pages.push_back(page);
    if (i < control.Pages().size()) {
      dialog.Attach<PageBinding>(*control.Pages()[i], *page);
    } else {
      page->SetName(ToWx(control.Name() + "." + std::to_string(i)));
    }
  }
  dialog.Attach<TabBinding>(control, *book, std::move(pages));
  return book;
}

wxPanel* PageOf(wxNotebook* book, const forms::Panel& page) {
  return dynamic_cast<wxPanel*>(&FormWindow::Of(*book).Find(page)->Widget());
}

}  // namespace views
