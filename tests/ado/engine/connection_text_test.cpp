#include "tarvola/ado/engine/connection_text.h"

#include <gtest/gtest.h>

namespace tarvola::ado::engine {
namespace {

struct TextCase {
  const char* text;
  const char* dsn;
  const char* user;
  const char* password;
};

TEST(ConnectionText, IsReadByKeywords) {
  const TextCase cases[] = {
      {"PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=pajak;UID=budi;PWD=rahasia;", "pajak", "budi", "rahasia"},
      {"dsn=pajak;uid=budi;pwd=x", "pajak", "budi", "x"},
      {"DSN=/data/toko.tarvola;UID=;PWD=;", "/data/toko.tarvola", "", ""},
      {" DSN = a b ; UID = c ;", "a b", "c", ""},
      {"DSN=first;DSN=second;", "first", "", ""},
      {"DSN=a=b;", "a=b", "", ""},
      {"PWD={a;b};DSN=x;", "x", "", "a;b"},
      {"PWD={a}}b};DSN=x;", "x", "", "a}b"},
      {"PWD={never closed;DSN=x", "", "", "never closed;DSN=x"},
      {"DSN", "", "", ""},
      {"DSN;UID=u", "", "u", ""},
      {"", "", "", ""},
      {";;;", "", "", ""},
      {"PROVIDER=MSDataShape", "", "", ""},
  };
  for (const TextCase& each : cases) {
    SCOPED_TRACE(each.text);
    const ConnectionText read = readConnectionText(each.text);
    EXPECT_EQ(read.dsn, each.dsn);
    EXPECT_EQ(read.user, each.user);
    EXPECT_EQ(read.password, each.password);
  }
}

TEST(ConnectionText, GivesBackAQuotedValueAsItWas) {
  for (const char* value : {"", "plain", "a;b", "}", "{x}", "a}}b;", " blank "}) {
    SCOPED_TRACE(value);
    EXPECT_EQ(readConnectionText("UID=" + quotedValue(value) + ";DSN=d").user, value);
    EXPECT_EQ(readConnectionText("UID=" + quotedValue(value) + ";DSN=d").dsn, "d");
  }
}

}  // namespace
}  // namespace tarvola::ado::engine
