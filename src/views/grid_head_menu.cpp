#include "views/grid_head_menu.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "views/form_window.h"
#include "views/grid_heads.h"

namespace views {
namespace {

// The command runs when the menu has gone.
wxMenuItem* Append(wxMenu& menu, wxGrid& widget, const wxString& caption, std::function<void()> run,
                   wxItemKind kind = wxITEM_NORMAL) {
  wxMenuItem* item = menu.Append(wxID_ANY, caption, wxString(), kind);
  menu.Bind(
      wxEVT_MENU,
      [&widget, run = std::move(run)](wxCommandEvent&) {
        FormWindow::Of(widget).CallAfter([&widget, run] {
          if (FormWindow::Of(widget).SyncFocus()) {
            run();
          }
        });
      },
      item->GetId());
  return item;
}

wxString CaptionOf(const forms::GridColumn& column) {
  wxString caption = wxControl::EscapeMnemonics(ToWx(column.caption.empty() ? column.key : column.caption));
  caption.Replace("\t", " ");
  return caption.empty() ? wxString(" ") : caption;
}

// The current one, or the first that is seen; -1 when there is none.
int CurrentColumn(const forms::Grid& grid) {
  const auto& visible = grid.VisibleColumns();
  const bool seen = std::ranges::binary_search(visible, grid.Col.get());
  return seen ? grid.Col.get() : visible.empty() ? -1 : visible.front();
}

}  // namespace

void FillColumnMenu(wxMenu& menu, forms::Grid& grid, wxGrid& widget, int column) {
  if (column >= 0 && grid.HeadClick) {
    Append(menu, widget, "Sort &Ascending", [&grid, column] { grid.DoSort(column, false); });
    Append(menu, widget, "Sort &Descending", [&grid, column] { grid.DoSort(column, true); });
  }
  if (column >= 0) {
    Append(menu, widget, "Size to &Contents", [&grid, &widget, column] { SizeToContents(grid, widget, column); });
  }
  if (grid.RestoreLayout) {
    Append(menu, widget, "Restore Default &Layout", [&grid] { grid.DoRestoreLayout(); });
  }
  menu.AppendSeparator();
  const auto& columns = grid.Columns.get();
  const bool one_is_left = grid.VisibleColumns().size() == 1;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const bool shown = columns[i].visible;
    wxMenuItem* item = Append(
        menu, widget, CaptionOf(columns[i]), [&grid, shown, i] { grid.DoShowColumn(static_cast<int>(i), !shown); },
        wxITEM_CHECK);
    item->Check(shown);
    item->Enable(!shown || !one_is_left);
  }
}

void AppendColumnMenu(wxMenu& menu, forms::Grid& grid, wxGrid& widget) {
  auto* columns = new wxMenu;
  FillColumnMenu(*columns, grid, widget, CurrentColumn(grid));
  menu.Append(wxID_ANY, "Col&umns", columns);
}

void BindHeadMenu(forms::Grid& grid, wxGrid& widget) {
  widget.Bind(wxEVT_GRID_LABEL_RIGHT_CLICK, [&](wxGridEvent& event) {
    if (!FormWindow::Of(widget).SyncFocus()) {
      return;
    }
    wxMenu menu;
    FillColumnMenu(menu, grid, widget, event.GetCol());
    wxWindow& heads = *widget.GetGridColLabelWindow();
    const wxPoint corner = widget.CalcScrolledPosition(widget.CellToRect(0, std::max(0, event.GetCol())).GetTopLeft());
    heads.PopupMenu(&menu, std::clamp(corner.x, 0, heads.GetSize().x), heads.GetSize().y);
  });
}

}  // namespace views
