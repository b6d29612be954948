#include <clocale>
#include <iostream>

#include <langinfo.h>
#include <unistd.h>

#include "Commands.h"
#include "core/ProgramHome.h"

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  kvlr::SystemClock clock;
  kvlr::SystemDiskInfo disk;
  kvlr::CliEnvironment env{std::cout,
                           std::cerr,
                           std::cin,
                           ::isatty(STDIN_FILENO) != 0,
                           clock,
                           disk,
                           nl_langinfo(D_FMT),
                           kvlr::ProgramHome::FromEnvironment().Root().string()};
  return kvlr::RunCli(std::vector<std::string>(argv + 1, argv + argc), env);
}
