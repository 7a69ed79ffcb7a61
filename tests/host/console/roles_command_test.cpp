#include "console/roles_command.h"

#include <gtest/gtest.h>

#include <sstream>

#include "database/database.h"
#include "database/unix/throwaway_cluster.h"
#include "support/odbc_url.h"

namespace host {
namespace {

TEST(RolesCommand, AdmitsADeskByOdbcToo) {
  const std::string name = SharedCluster().MakeDatabase("roles_command");
  const std::string desk = SharedCluster().MakeLogin("desk");
  const std::string url = OdbcUrl(SharedCluster().Url(name));
  CreateDatabase(url, {.kind = 7, .offices = 2})
      .Run(
          "INSERT INTO PATable (pLASNAM, OfficeID) VALUES ('Roe', 1), ('Poe', 2); "
          "INSERT INTO OffLocTable (OffLocNam, OfficeID) VALUES ('Main', 1), ('Main', 2)");
  std::ostringstream output;
  EXPECT_THROW(RunRoles(url, {desk, {3}}, output), session::DatabaseError) << "no such office";
  RunRoles(url, {desk, {2}}, output);
  EXPECT_EQ(output.str(), desk + " may work in the practice, in office 2.\n");
  {
    const PracticeDatabase opened = OpenDatabase(OdbcUrl(SharedCluster().Url(name, desk)));
    const auto rows = opened.Run("SELECT pLASNAM FROM PATable");
    EXPECT_EQ(rows->GetRows(9).size(), 1U);
  }
  SharedCluster().DropDatabase(name);
}

}  // namespace
}  // namespace host
