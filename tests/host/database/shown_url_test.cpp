#include "database/shown_url.h"

#include <gtest/gtest.h>

namespace {

TEST(ShownUrl, HidesEveryPassword) {
  const auto shown = [](const char* url) { return host::ShownUrl(url); };
  EXPECT_EQ(shown("postgresql://ada@db:5432/practice?sslmode=require"),
            "postgresql://ada@db:5432/practice?sslmode=require");
  EXPECT_EQ(shown("sqlite:/there/a:b@c/practice.db"), "sqlite:/there/a:b@c/practice.db");
  for (const char* url :
       {"postgresql://ada:geheim@db/practice", "postgresql://ada:gehe/im?@db/practice", "postgresql://ada:g@heim@db/p",
        "postgresql://ada:ge@h/heim@db/p", "postgresql:ada:geheim@db/p", "postgresql:/ada:geheim@db/p",
        "odbc:DSN=p;PWD=ge;heim;UID=a", "postgresql://db/practice?user=ada&password=geheim&sslmode=require",
        "postgresql://db/p?PASSWORD=geheim", "odbc:DSN=practice;UID=ada;PWD=geheim",
        "odbc:DSN=p;Pwd = {geh;ei}}m};UID=a", "odbc:Password='ge;heim';DSN=p",
        "postgresql://db/p?sslpassword=geheim"}) {
    const std::string text = shown(url);
    EXPECT_EQ(text.find("heim"), std::string::npos) << text;
    EXPECT_EQ(text.find("ei}"), std::string::npos) << text;
    EXPECT_NE(text.find("***"), std::string::npos) << text;
  }
  EXPECT_EQ(shown("odbc:DSN=p;PWD={a;b}}c};UID=ada"), "odbc:DSN=p;PWD=***;UID=ada");
}

}  // namespace
