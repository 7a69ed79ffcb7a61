#include "database/unix/throwaway_cluster.h"

#include <fcntl.h>
#include <libpq-fe.h>
#include <pwd.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <random>
#include <stdexcept>
#include <thread>
#include <vector>

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUser = "postgres";  // whose the server is where this process is root's
// Sockets' paths are short, and the server's user must reach them. In memory the hundreds of files of a database are
// made four times as fast.
constexpr const char* kInMemory = "/dev/shm";
constexpr const char* kOnDisk = "/tmp";
constexpr std::uintmax_t kRoomInMemory = 4'000'000'000;
constexpr std::string_view kPrefix = "practice_postgres-";
constexpr const char* kLockFile = "owner";
constexpr auto kPatience = std::chrono::seconds(60);
constexpr auto kPause = std::chrono::milliseconds(10);

[[noreturn]] void Fail(const std::string& why) {
  throw std::runtime_error(why);
}

// Where Debian puts the newest server's programs; empty for the search path.
fs::path Programs() {
  fs::path newest;
  int newest_version = 0;
  std::error_code none;
  for (const auto& version : fs::directory_iterator("/usr/lib/postgresql", none)) {
    const int number = std::atoi(version.path().filename().c_str());
    if (number > newest_version && fs::exists(version.path() / "bin/postgres")) {
      newest = version.path() / "bin";
      newest_version = number;
    }
  }
  return newest;
}

// The first line that the server's programs marked as the reason, or the last one.
std::string Complaint(const fs::path& log) {
  std::ifstream file(log);
  std::string last;
  for (std::string line; std::getline(file, line); last = line) {
    if (line.find("FATAL:") != std::string::npos || line.find("error:") != std::string::npos) {
      return line;
    }
  }
  return last;
}

// Starts a program of the server's in the folder's log, as a user that it accepts; it ends with this thread.
pid_t Spawn(const std::string& program, const std::vector<std::string>& arguments, const fs::path& folder) {
  std::vector<std::string> words{"setpriv", "--pdeathsig", "QUIT"};
  if (geteuid() == 0) {
    words.insert(words.end(),
                 {std::string("--reuid=") + kUser, std::string("--regid=") + kUser, "--clear-groups", "--reset-env"});
  }
  words.push_back((Programs() / program).string());
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) {
    pointers.push_back(word.data());
  }
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, 1, (folder / "log").c_str(), O_WRONLY | O_CREAT | O_APPEND,
                                   S_IRUSR | S_IWUSR);
  posix_spawn_file_actions_adddup2(&files, 1, 2);
  pid_t child = 0;
  const int error = posix_spawnp(&child, pointers.front(), &files, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (error != 0) {
    Fail("setpriv, which starts PostgreSQL, cannot be run.");
  }
  return child;
}

// Takes the lock that says that the folder's owner lives; -1 when another has it, or the folder has gone.
int Lock(const fs::path& folder, int flags) {
  const int file = open((folder / kLockFile).c_str(), flags | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
  struct stat found {};
  if (file >= 0 && (flock(file, LOCK_EX | LOCK_NB) != 0 || fstat(file, &found) != 0 || found.st_nlink == 0)) {
    close(file);
    return -1;
  }
  return file;
}

// Waits until the server of a process that was killed has ended, too.
void AwaitEnd(const fs::path& folder) {
  const fs::path file = folder / "data/postmaster.pid";  // there for as long as it runs, or when it was killed itself
  pid_t server = 0;
  std::ifstream(file) >> server;
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (server > 0 && fs::exists(file) && kill(server, 0) == 0 && std::chrono::steady_clock::now() < until) {
    std::this_thread::sleep_for(kPause);
  }
}

// Removes the folders of processes that were killed.
void RemoveLeft(const char* parent) {
  std::error_code not_ours;
  for (const auto& entry : fs::directory_iterator(parent, not_ours)) {
    if (!entry.path().filename().string().starts_with(kPrefix)) {
      continue;
    }
    if (const int lock = Lock(entry.path(), 0); lock >= 0) {
      AwaitEnd(entry.path());
      // The lock's file goes last, so that the next one finds what is left now.
      fs::remove_all(entry.path() / "data", not_ours);
      fs::remove_all(entry.path(), not_ours);
      close(lock);
    }
  }
}

// The URL with "*" for its database.
std::string WithoutDatabase(const std::string& url) {
  const std::size_t authority = url.find("://");
  if (!url.starts_with("postgres") || authority == std::string::npos) {
    Fail("PRACTICE_POSTGRES is no URL of a PostgreSQL server.");
  }
  const std::size_t options = std::min(url.find('?'), url.size());
  const std::size_t path = std::min(url.find('/', authority + 3), options);
  return url.substr(0, path) + "/*" + url.substr(options);
}

}  // namespace

ThrowawayCluster::ThrowawayCluster() : owner_(getpid()) {
  if (const char* given = std::getenv("PRACTICE_POSTGRES"); given != nullptr && *given != '\0') {
    url_ = WithoutDatabase(given);
  } else {
    MakeFolder();
  }
}

ThrowawayCluster::ThrowawayCluster(Own own) : owner_(getpid()), address_(std::move(own.address)) {
  MakeFolder();
}

ThrowawayCluster::ThrowawayCluster(Following following) : owner_(getpid()) {
  MakeFolder(&following.followed);
}

ThrowawayCluster::~ThrowawayCluster() {
  if (owner_ != getpid()) {
    return;
  }
  if (folder_.empty()) {
    for (const std::string& database : std::set(databases_)) {
      try {
        DropDatabase(database);
      } catch (const std::runtime_error&) {
        continue;  // it goes with the cluster
      }
    }
    for (const std::string& login : logins_) {
      try {
        Run("DROP ROLE " + login);
      } catch (const std::runtime_error&) {
        continue;
      }
    }
  } else {
    Stop();
  }
}

void ThrowawayCluster::MakeFolder(const ThrowawayCluster* followed) {
  RemoveLeft(kInMemory);
  RemoveLeft(kOnDisk);
  const bool installed = !Programs().empty() || std::system("command -v postgres initdb > /dev/null 2>&1") == 0;
  const passwd* user = geteuid() == 0 ? getpwnam(kUser) : nullptr;
  if (!installed || (geteuid() == 0 && user == nullptr)) {
    Fail("PostgreSQL is not installed (tools/setup does it).");
  }
  std::error_code unknown;
  const std::uintmax_t room = fs::space(kInMemory, unknown).available;
  const std::string parent = !unknown && room > kRoomInMemory && access(kInMemory, W_OK) == 0 ? kInMemory : kOnDisk;
  while (lock_ < 0) {
    std::string pattern = parent + "/" + std::string(kPrefix) + "XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
      Fail("No folder for PostgreSQL can be made in " + parent + ".");
    }
    folder_ = pattern;
    lock_ = Lock(folder_, O_CREAT | O_EXCL);
  }
  if (user != nullptr && chown(folder_.c_str(), user->pw_uid, user->pw_gid) != 0) {
    Fail("The folder of PostgreSQL cannot be given to its user.");
  }
  const std::string program = followed == nullptr ? "initdb" : "pg_basebackup";
  std::vector<std::string> arguments{"-D", folder_ / "data", "--no-sync"};
  if (followed == nullptr) {
    arguments.insert(arguments.end(),
                     {"-U", "practice", "-A", "trust", "-E", "UTF8", "--locale=C.UTF-8", "--no-instructions"});
  } else {
    arguments.insert(arguments.end(), {"-d", followed->Url("postgres"), "-R", "-c", "fast"});
  }
  const pid_t making = Spawn(program, arguments, folder_);
  int status = 0;
  if (waitpid(making, &status, 0) != making || status != 0) {
    const std::string why = Complaint(folder_ / "log");
    Stop();
    Fail("PostgreSQL's " + program + " failed: " + why);
  }
  url_ = "postgresql://practice@/*?host=" + folder_.string();
  Start();
}

void ThrowawayCluster::Start() {
  server_ = Spawn("postgres",
                  {"-D", folder_ / "data", "-k", folder_, "-c", "listen_addresses=" + address_, "-c", "fsync=off", "-c",
                   "full_page_writes=off", "-c", "autovacuum=off", "-c", "max_connections=200", "-c",
                   "wal_retrieve_retry_interval=100ms"},
                  folder_);
  const auto until = std::chrono::steady_clock::now() + kPatience;
  while (PQping(Url("postgres").c_str()) != PQPING_OK) {
    int status = 0;
    const bool ended = waitpid(server_, &status, WNOHANG) == server_;
    if (ended || std::chrono::steady_clock::now() > until) {
      const std::string why = Complaint(folder_ / "log");
      server_ = ended ? 0 : server_;
      Stop();
      Fail("PostgreSQL does not start: " + why);
    }
    std::this_thread::sleep_for(kPause);
  }
}

void ThrowawayCluster::Stop() {
  if (server_ != 0) {
    kill(server_, SIGQUIT);
    waitpid(server_, nullptr, 0);
    server_ = 0;
  }
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
  close(lock_);
}

void ThrowawayCluster::Halt() {
  if (server_ == 0) {
    Fail("The PostgreSQL server is another process's.");
  }
  kill(server_, SIGQUIT);
  waitpid(server_, nullptr, 0);
  server_ = 0;
}

void ThrowawayCluster::Restart() {
  Halt();
  Start();
}

std::string ThrowawayCluster::Url(std::string_view database, std::string_view login) const {
  std::string url = url_;
  url.replace(url.find("/*") + 1, 1, database);
  if (!login.empty()) {
    const std::size_t authority = url.find("://") + 3;
    const std::size_t at = url.find('@');
    url.replace(authority, at == std::string::npos ? 0 : at + 1 - authority, std::string(login) + "@");
  }
  return url;
}

std::string ThrowawayCluster::NewName(std::string_view stem) {
  static const unsigned chance = std::random_device()();
  return std::string(stem) + "_" + std::to_string(getpid()) + "_" + std::to_string(chance) + "_" +
         std::to_string(++made_);
}

std::string ThrowawayCluster::MakeLogin(std::string_view stem) {
  Run("CREATE ROLE " + logins_.emplace_back(NewName(stem)) + " LOGIN");
  return logins_.back();
}

std::string ThrowawayCluster::MakeDatabase(std::string_view stem, std::string_view copy_of) {
  std::string name = NewName(stem);
  Run("CREATE DATABASE " + name + " TEMPLATE " + (copy_of.empty() ? "template0" : std::string(copy_of)));
  databases_.insert(name);
  return name;
}

void ThrowawayCluster::DropDatabase(const std::string& name) {
  Run("DROP DATABASE IF EXISTS " + name + " WITH (FORCE)");
  databases_.erase(name);
}

void ThrowawayCluster::Run(const std::string& statement, std::string_view database) const {
  const std::unique_ptr<PGconn, decltype(&PQfinish)> connection(PQconnectdb(Url(database).c_str()), PQfinish);
  const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection.get(), statement.c_str()), PQclear);
  const ExecStatusType status = PQresultStatus(result.get());
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
    Fail(statement + ": " + PQerrorMessage(connection.get()));
  }
}

ThrowawayCluster& SharedCluster() {
  static ThrowawayCluster cluster;
  return cluster;
}

}  // namespace host
