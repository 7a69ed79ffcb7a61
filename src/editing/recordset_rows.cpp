#include "editing/recordset_rows.h"

namespace editing {
namespace {

constexpr int kRowsAPage = 256;
constexpr int kRowsAtOnce = 500;

}  // namespace

RecordsetRows::RecordsetRows(std::unique_ptr<session::Recordset> recordset, Cells cells)
    : recordset_(std::move(recordset)), fields_(recordset_->Fields()), cells_(std::move(cells)) {
  if (!cells_.empty()) {
    return;
  }
  for (std::size_t field = 0; field < fields_.size(); ++field) {
    cells_.push_back([field](const session::Recordset& row) { return session::ToText(row.Get(field)); });
  }
}

void RecordsetRows::Fetch(int count) {
  if (recordset_ == nullptr) {
    return;
  }
  for (; count > 0 && !recordset_->Eof(); --count) {
    AddRow();
    recordset_->MoveNext();
  }
  if (recordset_->Eof()) {
    recordset_.reset();
  }
  if (Arrived) {
    Arrived();
  }
}

bool RecordsetRows::FetchMore() {
  const int before = count_;
  const auto fetch = [this] { Fetch(kRowsAtOnce); };
  try {
    if (!Reading) {
      fetch();
    } else if (!Reading(fetch)) {
      recordset_.reset();
    }
  } catch (const session::DatabaseError& error) {
    recordset_.reset();
    if (Failed) {
      Failed(error);
    }
  }
  return count_ > before;
}

void RecordsetRows::AddRow() {
  if (count_ % kRowsAPage == 0) {
    if (!pages_.empty()) {
      pages_.back().text.shrink_to_fit();
    }
    pages_.emplace_back().ends.reserve(kRowsAPage * cells_.size());
  }
  Page& page = pages_.back();
  for (const auto& cell : cells_) {
    page.text += cell(*recordset_);
    page.ends.push_back(static_cast<std::uint32_t>(page.text.size()));
  }
  ++count_;
}

std::string_view RecordsetRows::Text(int row, int column) const {
  if (const auto found = put_.empty() ? put_.end() : put_.find({row, column}); found != put_.end()) {
    return found->second;
  }
  const Page& page = pages_[static_cast<std::size_t>(row / kRowsAPage)];
  const std::size_t cell =
      static_cast<std::size_t>(row % kRowsAPage) * cells_.size() + static_cast<std::size_t>(column);
  const std::size_t begin = cell == 0 ? 0 : page.ends[cell - 1];
  return std::string_view(page.text).substr(begin, page.ends[cell] - begin);
}

}  // namespace editing
