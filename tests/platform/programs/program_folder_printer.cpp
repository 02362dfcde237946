// Prints the program's folder, as an application that loads the shared library gets it. With the argument
// "furnish" it furnishes the folder first, and prints "furnished " in front when anything was copied.

#include "zelnor/platform/files.h"

#include <cstdio>
#include <exception>
#include <string>

int main(int count, char** arguments) {
  try {
    const bool furnished =
        count > 1 && std::string(arguments[1]) == "furnish" && zelnor::FurnishProgramFolder();
    std::printf("%s%s\n", furnished ? "furnished " : "", zelnor::ProgramFolder().c_str());
    return 0;
  } catch (const std::exception& error) {
    std::printf("%s\n", error.what());
    return 1;
  }
}
