#pragma once

#include <sys/types.h>

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// A PostgreSQL server for tests: as the superuser "practice" over a socket that this user alone can reach, its
// databases worth nothing after a crash. Throws std::runtime_error in one line, also where PostgreSQL is not installed.
class ThrowawayCluster {
 public:
  // The one that the environment variable PRACTICE_POSTGRES names by its URL, or else one of its own, which ends with
  // this object or, when it is killed, with the thread that made it.
  ThrowawayCluster();
  // One of its own in any case.
  struct Own {
    std::string address = {};  // that it listens at besides its socket
  };
  explicit ThrowawayCluster(Own own);
  // One that follows another of its own (hot standby).
  struct Following {
    const ThrowawayCluster& followed;
  };
  explicit ThrowawayCluster(Following following);
  ThrowawayCluster(const ThrowawayCluster&) = delete;
  ThrowawayCluster& operator=(const ThrowawayCluster&) = delete;
  // Drops what it has made. A copy of this process by fork does nothing.
  ~ThrowawayCluster();

  // Where its socket is, and its data in the folder "data", of one of its own.
  const std::filesystem::path& Folder() const { return folder_; }
  // The URL of one of its databases; as a login of `MakeLogin`, or as the superuser.
  std::string Url(std::string_view database, std::string_view login = {}) const;
  // Makes a database, without tables or as a copy of one that nobody is connected to. Its name: the stem, which is
  // made of lower-case letters, digits and underscores, and what tells it from those of other processes.
  std::string MakeDatabase(std::string_view stem, std::string_view copy_of = {});
  // Makes a login that may do nothing yet, called as databases are. It needs no password.
  std::string MakeLogin(std::string_view stem);
  // Ends its connections, too.
  void DropDatabase(const std::string& name);
  // Stops the server at once and starts it again, as after a crash; one of its own only.
  void Restart();
  // The same in two steps.
  void Halt();
  void Start();
  // Runs a statement in a database, the superuser's "postgres" by default, for what no practice's connection does.
  void Run(const std::string& statement, std::string_view database = "postgres") const;

 private:
  void MakeFolder(const ThrowawayCluster* followed = nullptr);
  void Stop();
  std::string NewName(std::string_view stem);

  pid_t owner_;
  std::string url_;  // without its path, with "*" in its place
  std::set<std::string> databases_;
  std::vector<std::string> logins_;
  int made_ = 0;
  // Of one of its own.
  std::string address_;
  std::filesystem::path folder_;
  int lock_ = -1;
  pid_t server_ = 0;
};

// This process's, started when it is first asked for.
ThrowawayCluster& SharedCluster();

}  // namespace host
