#include "database/postgres/postgres_session.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using host::CanReadApart;
using host::ForFirstRows;

TEST(PostgresSession, LetsASelectAloneReadApart) {
  for (const char* apart : {"SELECT 1", " select ';' AS \"a;b\", ' into ' ;\n"}) {
    EXPECT_TRUE(CanReadApart(apart)) << apart;
  }
  for (const char* together : {"SELECT 1; SELECT 2", "UPDATE t SET a=1", "SELECT practice_identity()",
                               "WITH a AS (x) y", "select *\ninto t from u"}) {
    EXPECT_FALSE(CanReadApart(together)) << together;
  }
}

TEST(PostgresSession, LeadsASortedListToItsIndex) {
  EXPECT_EQ(ForFirstRows("SELECT a FROM t ORDER BY a; "), "SELECT a FROM t ORDER BY a\nLIMIT (SELECT NULL::int8)");
  EXPECT_NE(ForFirstRows("SELECT a FROM (SELECT b FROM t LIMIT 1) x ORDER BY 'limit '").find("int8"),
            std::string::npos);
  for (const std::string as_it_is :
       {"SELECT a FROM t", "SELECT a FROM t ORDER BY a LIMIT 5", "SELECT a FROM t order by a for update",
        "SELECT ' ORDER BY ' FROM t", "SELECT a FROM (SELECT b FROM t ORDER BY b) x"}) {
    EXPECT_EQ(ForFirstRows(as_it_is), as_it_is);
  }
}

}  // namespace
