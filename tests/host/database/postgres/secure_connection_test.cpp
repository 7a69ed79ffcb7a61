#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "database/postgres/postgres_connection.h"
#include "database/unix/throwaway_cluster.h"

namespace host {
namespace {

using session::DatabaseError;
using session::ToText;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// One of the machine's own addresses, which no other process of the tests listens at.
std::string OwnAddress() {
  const auto part = [](int bits) { return "." + std::to_string((getpid() >> bits) & 255); };
  return "127." + std::to_string(64 + (getpid() >> 16)) + part(8) + part(0);
}

// A server on the network, called db.example, and a desk's login whose password it asks for.
class SecureConnection : public testing::Test {
 public:
  SecureConnection() {
    std::filesystem::create_directory(folder_);
    // In the folder of the server's data, and as its user.
    for (const std::string& command :
         {Certificate("server"), Certificate("stranger"),
          std::string(R"(printf "local all all trust\nhost all all all scram-sha-256\n" > pg_hba.conf)")}) {
      server_.Run("COPY (SELECT 1) TO PROGRAM 'cat > /dev/null; " + command + "'");
    }
    server_.Run("CREATE ROLE desk LOGIN PASSWORD 'geheim'");
    server_.Restart();
  }
  ~SecureConnection() override { std::filesystem::remove_all(folder_); }

 protected:
  static std::string Certificate(const std::string& file) {
    return "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 -subj /CN=db.example "
           "-addext subjectAltName=DNS:db.example -keyout " +
           file + ".key -out " + file + ".crt 2>&1";
  }
  void SpeakTls() {
    server_.Run("ALTER SYSTEM SET ssl = on");
    server_.Restart();
  }
  std::string File(const std::string& certificate) const { return server_.Folder() / "data" / (certificate + ".crt"); }
  std::string PasswordFile(const std::string& password, std::filesystem::perms permissions) const {
    const std::filesystem::path path = folder_ / "passwords";
    std::ofstream(path) << "db.example:5432:postgres:desk:" << password << "\n";
    std::filesystem::permissions(path, permissions);
    return path;
  }

  // What a desk is told that connects, "TLS" or "plain" when it may.
  std::string Connect(const std::string& options, const std::string& password = ":geheim",
                      const std::string& name = "db.example") const {
    try {
      PostgresConnection connection("postgresql://desk" + password + "@" + name + "/postgres?hostaddr=" + address_ +
                                    options);
      const std::string tls =
          "SELECT CASE WHEN ssl THEN 'TLS' ELSE 'plain' END FROM pg_stat_ssl "
          "WHERE pid=pg_backend_pid()";
      std::string reader = ToText(connection.Execute(tls)->Get(0));
      EXPECT_EQ(ToText(connection.Execute(tls + "; " + tls)->Get(0)), reader);
      return reader;
    } catch (const DatabaseError& error) {
      EXPECT_THAT(error.what(), AllOf(HasSubstr("The database \"postgres\" on " + name + " cannot be reached: "),
                                      Not(HasSubstr("geheim"))));
      return error.what();
    }
  }

  std::string address_ = OwnAddress();
  ThrowawayCluster server_{ThrowawayCluster::Own{.address = address_}};
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("secure_connection" + std::to_string(getpid()));
};

TEST_F(SecureConnection, IsTlsAndSureOfItsServerWhereItShallBe) {
  EXPECT_THAT(Connect(""), HasSubstr("server does not support SSL"));
  SpeakTls();
  EXPECT_EQ(Connect(""), "TLS");
  EXPECT_EQ(Connect("&sslmode=disable"), "plain") << "only by a word of the administrator";
  const std::string sure = "&sslmode=verify-full&sslrootcert=";
  EXPECT_EQ(Connect(sure + File("server")), "TLS");
  EXPECT_THAT(Connect(sure + File("stranger")), HasSubstr("certificate verify failed"));
  EXPECT_THAT(Connect(sure + File("server"), ":geheim", "other.example"),
              HasSubstr("does not match host name \"other.example\""));
  EXPECT_THAT(Connect(sure + File("nowhere")), HasSubstr("does not exist"));
}

TEST_F(SecureConnection, TakesThePasswordFromWhereItBelongsAndTellsNobody) {
  SpeakTls();
  EXPECT_THAT(Connect("", ""), HasSubstr("it asks for a password, and there is none in the password file."));
  EXPECT_THAT(Connect("", ":geheimer"), HasSubstr("password authentication failed for user \"desk\""));
  using std::filesystem::perms;
  const perms own = perms::owner_read | perms::owner_write;
  EXPECT_EQ(Connect("&passfile=" + PasswordFile("geheim", own), ""), "TLS");
  EXPECT_THAT(Connect("&passfile=" + PasswordFile("geheimer", own), ""), HasSubstr("password authentication failed"));
  EXPECT_THAT(Connect("&passfile=" + PasswordFile("geheim", own | perms::others_read), ""),
              HasSubstr("there is none in the password file"));
}

}  // namespace
}  // namespace host
