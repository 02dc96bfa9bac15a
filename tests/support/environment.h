// What tests need of the system's processes.
#pragma once

#include <filesystem>
#include <string>

namespace zel::test {

// Environment variables of this process, and of programs that it starts.
void SetVariable(char const* name, std::string const& value);
void UnsetVariable(char const* name);
int ProcessNumber();
// Removes a folder and what is in it, also where paths are long.
void RemoveFolder(std::filesystem::path const& folder);
// The variable that names the folder for temporary files.
extern char const* const kTemporaryFolderVariable;

struct ProgramResult {
  int status = -1;
  std::string output;  // standard output and standard error
};

// Runs a program with its arguments, as the shell of the system reads them.
ProgramResult RunProgram(std::string const& command);
// A path or an argument, quoted for that shell.
std::string Quoted(std::string const& text);

}  // namespace zel::test
