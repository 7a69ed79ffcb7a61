#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "database/private_files.h"
#include "forms/dates.h"

namespace host {

// A folder of messages that nobody has sent: a file each, whole or not at all, for the eyes of those who work in the
// practice.
class Outbox {
 public:
  explicit Outbox(std::string_view data_folder, Access access = Access::Owner);

  const std::filesystem::path& Folder() const { return folder_; }
  // The folder's name, for a person.
  std::string Told() const;
  // Puts a message in; `ending` is that of its file (".eml"). False when it could not be written.
  bool Put(forms::DateTime when, std::string_view ending, std::string_view text) const;

  struct Entry {
    std::string file;  // its name
    std::string when;  // "11-21-2026 14:05"
    std::string to;
    bool is_email = false;
  };
  // The newest first, at most so many.
  std::vector<Entry> List(std::size_t most = 200) const;
  // Whether this account may look into the folder; one that is not there yet is empty.
  bool IsReadable() const;
  // The start of a message as it lies there; empty when it is gone.
  std::string Read(const std::string& file, std::size_t most = 20'000) const;
  // False when it could not be deleted.
  bool Remove(const std::string& file) const;

 private:
  void SweepParts() const;

  std::filesystem::path folder_;
  Access access_;
};

}  // namespace host
