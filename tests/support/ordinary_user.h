#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace tarvola::test {

/// Puts off the rights of the administrator, to whom no file is read-only.
class OrdinaryUser {
 public:
  OrdinaryUser() : before_(geteuid()) {
    if (before_ == 0) become(nobody);
  }
  ~OrdinaryUser() {
    if (before_ == 0) become(before_);
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  static constexpr uid_t nobody = 65534;

 private:
  static void become(uid_t user) { EXPECT_EQ(seteuid(user), 0); }

  uid_t before_;
};

}  // namespace tarvola::test
