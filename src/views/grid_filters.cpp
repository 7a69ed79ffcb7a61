#include "views/grid_filters.h"

#include <algorithm>

#include "views/accessible_name.h"
#include "views/form_window.h"
#include "views/text_binders.h"
#include "views/typed_ahead.h"

namespace views {
GridFilters::GridFilters(forms::Grid& grid, wxGrid& widget) : grid_(grid), widget_(widget) {
  delay_.SetOwner(&delay_);
  delay_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Apply(); });
}

void GridFilters::Show() {
  const auto& columns = grid_.Columns.get();
  const std::size_t wanted = grid_.FilterBar ? columns.size() : 0;
  while (cells_.size() > wanted) {
    cells_.back()->Destroy();
    cells_.pop_back();
  }
  while (cells_.size() < wanted) {
    cells_.push_back(MakeCell());
  }
  for (std::size_t i = 0; i < wanted; ++i) {
    cells_[i]->SetName(ToWx(grid_.Name() + ".filter." + columns[i].key));
    cells_[i]->SetHint("Filter");
    SetAccessibleName(*cells_[i], "Filter " + columns[i].caption);
    if (!delay_.IsRunning() && cells_[i]->GetValue() != ToWx(columns[i].filter)) {
      cells_[i]->ChangeValue(ToWx(columns[i].filter));
    }
  }
  const int caption = widget_.GetCharHeight() + widget_.FromDIP(10);
  const int height = cells_.empty() ? caption : caption + cells_.front()->GetMinSize().y + widget_.FromDIP(4);
  if (widget_.GetColLabelSize() != height) {
    widget_.SetColLabelSize(height);
    widget_.SetColLabelAlignment(wxALIGN_LEFT, cells_.empty() ? wxALIGN_CENTRE : wxALIGN_TOP);
  }
  Place();
}

void GridFilters::Place() {
  const int gap = widget_.FromDIP(1);
  int start = 0;
  widget_.CalcScrolledPosition(0, 0, &start, nullptr);
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const int width = widget_.GetColSize(static_cast<int>(i));
    cells_[i]->Show(width > 4 * gap);
    if (cells_[i]->IsShown()) {
      const int height = cells_[i]->GetMinSize().y;
      cells_[i]->SetSize(start + gap, widget_.GetColLabelSize() - height - 2 * gap, width - 2 * gap, height);
    }
    start += width;
  }
}

wxTextCtrl* GridFilters::MakeCell() {
  auto* cell = new wxTextCtrl(widget_.GetGridColLabelWindow(), wxID_ANY);
  SizeField(*cell, 1);
  cell->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { delay_.StartOnce(static_cast<int>(pause_.Length().count())); });
  cell->Bind(wxEVT_CHAR_HOOK, [this, cell](wxKeyEvent& event) { OnKey(*cell, event); });
  cell->Bind(wxEVT_SET_FOCUS, [this, cell](wxFocusEvent& event) {
    event.Skip();
    widget_.MakeCellVisible(-1, ColumnOf(cell));
    grid_.FilterCell = ColumnOf(cell);
  });
  cell->Bind(wxEVT_KILL_FOCUS, [this, cell](wxFocusEvent& event) {
    event.Skip();
    if (grid_.FilterCell == ColumnOf(cell)) {
      grid_.FilterCell = -1;
    }
  });
  return cell;
}

void GridFilters::OnKey(wxTextCtrl& cell, wxKeyEvent& event) {
  switch (event.HasAnyModifiers() ? WXK_NONE : event.GetKeyCode()) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
      Apply();
      break;
    case WXK_ESCAPE:
      if (cell.IsEmpty()) {
        event.Skip();
      } else {
        cell.Clear();
        Apply();
      }
      break;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
      Apply();
      widget_.GetGridWindow()->SetFocus();
      grid_.DoRow(std::max(0, grid_.Row.get()));
      break;
    default:
      event.Skip();
  }
}

void GridFilters::Apply() {
  delay_.Stop();
  if (!FormWindow::Of(widget_).SyncFocus()) {
    return;
  }
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const std::string typed = FromWx(cells_[i]->GetValue());
    if (typed != grid_.Columns.get()[i].filter) {
      const wxStopWatch watch;
      ended_ = false;
      grid_.DoFilter(static_cast<int>(i), typed);
      if (!ended_) {
        pause_.Took(forms::FilterPause::Milliseconds(watch.Time()));
      }
    }
  }
}

int GridFilters::ColumnOf(const wxWindow* cell) const {
  const auto found = std::ranges::find(cells_, cell);
  return found == cells_.end() ? -1 : static_cast<int>(found - cells_.begin());
}

bool GridFilters::Enter(int column) {
  const auto place = static_cast<std::size_t>(column);
  if (column < 0 || place >= cells_.size() || !cells_[place]->IsShown()) {
    return false;
  }
  if (!cells_[place]->HasFocus()) {
    cells_[place]->SetFocus();
  }
  return true;
}

void GridFilters::Begin(int column, wxChar character) {
  if (Enter(column)) {
    wxTextCtrl& cell = *cells_[static_cast<std::size_t>(column)];
    cell.SetValue(wxString(character));
    cell.SetInsertionPointEnd();
  }
}

bool GridFilters::Typing() {
  constexpr std::chrono::milliseconds kBetweenLooks(10);
  const auto now = std::chrono::steady_clock::now();
  if (now - looked_ < kBetweenLooks) {
    return delay_.IsRunning();
  }
  looked_ = now;
  const wxWindow* focus = wxWindow::FindFocus();
  const bool key = focus != nullptr && widget_.IsDescendant(const_cast<wxWindow*>(focus)) && TypingWaits();
  if (key) {
    pause_.Ended();
  }
  ended_ = ended_ || key;
  return key || delay_.IsRunning();
}

bool GridFilters::TakeFocus(bool last) {
  const auto shown = [](const wxTextCtrl* cell) { return cell->IsShown(); };
  const auto first = std::ranges::find_if(cells_, shown);
  if (first == cells_.end()) {
    return false;
  }
  (last ? *std::find_if(cells_.rbegin(), cells_.rend(), shown) : *first)->SetFocus();
  return true;
}

bool GridFilters::Step(bool backward) {
  const auto count = static_cast<std::ptrdiff_t>(cells_.size());
  const std::ptrdiff_t from = std::ranges::find(cells_, wxWindow::FindFocus()) - cells_.begin();
  const std::ptrdiff_t step = backward ? -1 : 1;
  for (std::ptrdiff_t at = from + step; from < count && at >= 0 && at < count; at += step) {
    if (wxTextCtrl* cell = cells_[static_cast<std::size_t>(at)]; cell->IsShown()) {
      cell->SetFocus();
      return true;
    }
  }
  return false;
}

}  // namespace views
