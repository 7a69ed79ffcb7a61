#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/grid.h"
#include "session/connection.h"

namespace editing {

// The rows of a recordset as a grid's cells, fetched piece by piece and kept as text.
class RecordsetRows : public forms::GridRows {
 public:
  // The cells of a row; without them they are the fields.
  using Cells = std::vector<std::function<std::string(const session::Recordset& row)>>;

  explicit RecordsetRows(std::unique_ptr<session::Recordset> recordset, Cells cells = {});

  // After every piece; `FetchMore` reports here what the database refused, and stops.
  std::function<void()> Arrived;
  std::function<void(const session::DatabaseError&)> Failed;

  // How `FetchMore` reads, where a rule may give that up: it does the fetch, false when it was given up. Then no
  // further row comes.
  std::function<bool(const std::function<void()>& fetch)> Reading;

  const std::vector<session::Field>& Fields() const { return fields_; }
  // Every row has arrived.
  bool Complete() const { return recordset_ == nullptr; }

  // At most `count` rows more. Throws DatabaseError.
  void Fetch(int count);

  // The cell shows this from now on.
  void Put(int row, int cell, std::string text) { put_[{row, cell}] = std::move(text); }

  int Count() const override { return count_; }
  std::string_view Text(int row, int column) const override;
  bool FetchMore() override;

 private:
  // The cells of some rows one behind the other, and where each ends.
  struct Page {
    std::string text;
    std::vector<std::uint32_t> ends;
  };

  void AddRow();

  std::unique_ptr<session::Recordset> recordset_;
  std::vector<session::Field> fields_;
  Cells cells_;
  std::vector<Page> pages_;
  std::map<std::pair<int, int>, std::string> put_;
  int count_ = 0;
};

}  // namespace editing
