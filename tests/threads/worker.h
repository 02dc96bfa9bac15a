// What one thread does with libraries of its own, and checks of the results.
#pragma once

#include <zelaccess/LibMaint_p.h>
#include <zelaccess/Verify.h>
#include <zelaccess/ZelAccess.h>

#include <filesystem>
#include <string>

namespace zel::test {

// Every number that a worker stores depends on the worker's own number, so that data from another
// thread's library are detected. All checks throw std::runtime_error with what went wrong.
class Worker {
 public:
  Worker(std::filesystem::path folder, int number);

  // One round: each of the steps below, in new libraries.
  void Run();

 private:
  void MakeLibrary();
  void ImportDocument();
  void ReadAndRewritePairs();
  void Walk();
  void WalkForVerification();
  void Evaluate();
  void SearchTwoLibraries();
  void ExportAndImportAgain();
  void BuildList();
  void AskTheNameIndex();

  std::string Path(char const* name) const { return (folder_ / name).string(); }
  double Aij(long item) const { return 1000.0 * number_ + static_cast<double>(item); }

  std::filesystem::path folder_;
  int number_;
  Handle<LibFile> library_;
  Handle<LibMaint> maint_;
};

// Makes the library with one component that all threads use as the name index.
Handle<LibFile> MakeNameIndex(std::filesystem::path const& folder);

}  // namespace zel::test
