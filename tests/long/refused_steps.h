// Steps of a host, each a public call or a few, in a small world of files. refused_calls.cpp runs
// them while memory and operations on files are refused.
#pragma once

#include <zelaccess/Columns.h>
#include <zelaccess/CompList_p.h>
#include <zelaccess/Key_p.h>
#include <zelaccess/LibFile_p.h>
#include <zelaccess/LibMaint_p.h>
#include <zelaccess/LibSearch_p.h>
#include <zelaccess/OpenLibrary.h>
#include <zelaccess/Progress.h>
#include <zelaccess/Verify.h>
#include <zelaccess/ZelAccess.h>

#include <cstddef>
#include <string>
#include <vector>

namespace zel::test {

// What a step reports. Takes no memory.
class Outcome {
 public:
  // Something found out: it must be right if the step ends well.
  void Add(char const* text) noexcept;
  void Add(long long value) noexcept;
  void Add(double value) noexcept;
  // The status of something done: false is an error that the function documents.
  void Done(bool isGood) noexcept;
  // A library that was opened or made, or the documented reason.
  void Opened(LibFile const* library, openErrors error) noexcept;

  bool HasFailed() const noexcept { return hasFailed_; }
  char const* Text() const noexcept { return text_; }
  bool operator==(Outcome const& other) const noexcept;

 private:
  static constexpr std::size_t kRoom = 60'000;
  char text_[kRoom] = {};
  std::size_t used_ = 0;
  bool hasFailed_ = false;
};

// Files of the world, by name in its folder.
inline constexpr char kLibraryFile[] = "world.lb1";
inline constexpr char kOtherFile[] = "other.lb1";
inline constexpr char kNewFile[] = "new.lb1";
inline constexpr char kBankDocument[] = "pairs.xml";
inline constexpr char kComponentDocument[] = "component.xml";
inline constexpr char kLibraryDocument[] = "whole.xml";
inline constexpr char kDamagedDocument[] = "damaged.xml";
inline constexpr char kListFile[] = "world.lst";

// Banks of the library and of the other one.
inline constexpr char kComponents[] = "MINE";
inline constexpr char kPairs[] = "VLE";
inline constexpr long kFirst = 21'000'000;  // number of the first component, ID C0

// Counts findings; the last one in words.
class FindingCounter final : public ZelFindingSink {
 public:
  void Found(zelFindings severity, char const* id, char const* place, char const* text) override;
  int found = 0;
  int damage = 0;
  char last[400] = {};
};

class CancelAt final : public ZelProgress {
 public:
  explicit CancelAt(int call) : call_(call) {}
  bool OnProgress(double) noexcept override { return ++calls_ != call_; }

 private:
  int call_;
  int calls_ = 0;
};

// The objects of a step. What is open before the step depends on its mode.
struct Bench {
  explicit Bench(std::string const& folder);
  char const* Path(char const* name);  // of a file of the world, until the next call

  LibMaint_p& Log() { return dynamic_cast<LibMaint_p&>(*maint); }
  LibFile_p& Inside() { return dynamic_cast<LibFile_p&>(*library); }
  Key_p& Words() { return dynamic_cast<Key_p&>(*key); }
  CompListBuild_p& Builder() { return dynamic_cast<CompListBuild_p&>(*list->GetBuilder()); }

  std::string folder;
  char path[600] = {};
  Handle<LibFile> other;    // the other library, open for reading, where a step needs it
  Handle<LibFile> library;  // the library of the world
  Handle<LibFile> made;     // a library that the step makes or opens
  Handle<LibMaint> maint;   // on `library`
  Handle<LibMaint> extra;
  Handle<Key> key;
  Handle<IZelBankDef> pair;
  Handle<IZelBankDef> spare;
  BankFace<IZelPureComp> component;
  Handle<LibSearch> search;
  Handle<CompList> list;
  Handle<ColumnReader> columns;
  FindingCounter sink;
  std::FILE* stream = nullptr;
};

// How the library of the world is open before the step: kUpdate writes plainly.
enum class Opens { kNothing, kRead, kUpdate, kMarked, kHeld };

enum Traits : unsigned {
  kPlain = 0,
  kParts = 1,       // stores several things, of which some may be stored when it fails
  kOnce = 2,        // cannot be tried again with the same objects
  kMayLose = 4,     // what was not flushed may be lost when it fails
  kImports = 8,     // leaves a part of a document when it fails
  kLeavesOut = 16,  // leaves out files that cannot be written
  kParses = 32,     // the XML parser can lose memory when it is refused some
  kWhole = 64,      // leaves the library as before or as after, also if all operations fail
};

struct Step {
  std::string name;
  std::string calls;  // the functions that it tests, "Class::Function" or "Function"
  Opens opens;
  unsigned traits;
  void (*prepare)(Bench& bench);  // before anything is refused; may be null
  void (*run)(Bench& bench, Outcome& outcome);
};

using Steps = std::vector<Step>;
Steps LibrarySteps();
Steps OpenSteps();
Steps MaintenanceSteps();
Steps DocumentSteps();
Steps ComponentSteps();
Steps BankTypeSteps();
Steps ReaderSteps();

// Makes the files of the world.
void MakeWorld(std::string const& folder);

}  // namespace zel::test
