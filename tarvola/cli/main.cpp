#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

#include "tarvola/cli/commands.h"

namespace {

std::size_t columnsOfOutput() {
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace

int main(int argc, char** argv) {
  const tarvola::cli::Terminal terminal{.input = isatty(STDIN_FILENO) != 0 ? &std::cin : nullptr,
                                        .width = columnsOfOutput()};
  return tarvola::cli::run({argv + 1, argv + argc}, std::cout, std::cerr, terminal);
}
