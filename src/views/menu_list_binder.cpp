#include "views/menu_list_binder.h"

#include <wx/menu.h>

#include <map>

#include "views/form_window.h"

namespace views {
namespace {

class MenuListBinding : public Binding {
 public:
  MenuListBinding(forms::ListBox& control, wxButton& widget) : Binding(control, widget), list_(control) {
    widget.Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
      if (Dialog().SyncFocus()) {
        Open();
      }
    });
  }

 private:
  void Open() {
    wxMenu menu;
    std::map<wxString, wxMenu*> groups;
    std::map<int, int> entries;
    for (int entry = 0; entry < static_cast<int>(list_.Items->size()); ++entry) {
      const wxString text = ToWx(list_.Items.get()[static_cast<std::size_t>(entry)].text);
      const wxString group = text.Contains("\t") ? text.BeforeFirst('\t') : wxString();
      wxMenu*& in = groups[group];
      if (in == nullptr) {
        in = group.empty() ? &menu : new wxMenu;
        if (!group.empty()) {
          menu.AppendSubMenu(in, wxControl::EscapeMnemonics(group));
        }
      }
      entries[in->Append(wxID_ANY, wxControl::EscapeMnemonics(text.AfterLast('\t')))->GetId()] = entry;
    }
    const int chosen = Widget().GetPopupMenuSelectionFromUser(menu, wxPoint(0, Widget().GetSize().y));
    if (const auto entry = entries.find(chosen); entry != entries.end()) {
      list_.DoPick(entry->second);
    }
  }

  forms::ListBox& list_;
};

}  // namespace

wxButton* MakeMenuList(wxWindow* parent, forms::ListBox& control, const wxString& caption) {
  auto* button = new wxButton(parent, wxID_ANY, caption + ToWx(" \u25BE"));
  FormWindow::Of(*parent).Attach<MenuListBinding>(control, *button);
  return button;
}

}  // namespace views
