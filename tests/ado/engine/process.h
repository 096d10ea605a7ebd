#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace tarvola::test {

/// Runs a piece of work in a process of its own. The work must open its own connections: a native handle does not
/// survive the division of a process.
template <class Work>
pid_t startProcess(Work&& work) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child != 0) return child;
  int exitCode = 0;
  try {
    exitCode = work();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "in the child: %s\n", error.what());
    exitCode = 99;
  }
  std::_Exit(exitCode);
}

/// The code with which the process ended, -1 if a signal ended it.
inline int exitCodeOf(pid_t process) {
  int status = 0;
  ::waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Becomes a user who owns nothing, since the superuser may write everywhere.
inline bool becomeNobody() {
  if (::geteuid() != 0) return true;
  constexpr unsigned nobody = 65'534;
  return ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
}

}  // namespace tarvola::test
