#pragma once

#include <cstdint>
#include <string>

#include "data/shared_records.h"
#include "editing/replacement.h"
#include "editing/rules.h"

namespace editing {

// Deletes a record that many patients share, or ends one of an employer's links, with everything that runs through it.
// The person is told how many it concerns and may put another in its place instead; whoever is replaced is connected to
// nobody any more, and may go next. The record is held meanwhile, and what was answered is put down.
class SharedRecordRemoval : protected Rules {
 public:
  // `name` is what the person knows the record by.
  SharedRecordRemoval(const session::ScreenContext& context, data::SharedRecord kind, std::int32_t id,
                      std::string name);
  virtual ~SharedRecordRemoval() = default;

  // False when nothing was changed and the record is as the person saw it.
  bool Run();

 protected:
  // How many patients or subscribers the record is connected to.
  virtual int Count() const { return records_.Uses(kind_, id_); }
  // Its answers are Cancel, Replace, and the one that lets the record go.
  virtual forms::Message Question(int count) const = 0;
  // Another is about to be chosen in its place. Throws session::DatabaseError, and Refusal.
  virtual void BeforeReplacing() {}
  // How the log speaks of a record of that name.
  virtual std::string Logged(const std::string& name) const { return name; }

  std::int32_t Id() const { return id_; }
  data::SharedRecord Kind() const { return kind_; }
  const SharedRecordWords& NameOfKind() const { return words_; }
  const data::SharedRecords& Records() const { return records_; }

 private:
  void Remove();
  // The name now. Throws Refusal when the record is gone.
  std::string RequireName();
  void RemoveWhole();
  void Log(forms::Answer answer, const std::string& question, const std::string& name) const;

  data::SharedRecord kind_;
  std::int32_t id_;
  std::string name_;
  SharedRecordWords words_;
  data::SharedRecords records_;
  bool changed_ = false;
};

}  // namespace editing
