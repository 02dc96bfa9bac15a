// One trial: a step in a world made anew, with one refusal, and what must hold afterwards.
#pragma once

#include <map>
#include <string>

#include "tests/long/refusals.h"
#include "tests/long/refused_state.h"
#include "tests/long/refused_steps.h"

namespace zel::test {

struct Kind {
  char const* name;
  Refusal refusal;
};

// Prints how many public functions the steps call. Returns the number of those that they neither
// call nor are excused, and of the names that are wrong.
int PrintCoverage(Steps const& steps);

// Says what to print if the program crashes, and ends it if the trial hangs.
void SetNow(Step const& step, char const* kind, long at);

class Trials {
 public:
  explicit Trials(std::string folder);

  // Runs a step undisturbed. False if that fails.
  bool Begin(Step const& step);
  // Of that step, one in `every` requests or operations is refused, the first at `from`.
  void RunAll(Kind const& kind, long every, long from);
  // Prints the counts. Returns the number of faults.
  int Print() const;

 private:
  enum class End { kWell, kFailed, kNoMemory, kBlockError, kOther };

  struct Counts {
    long refused = 0;
    long right = 0;   // the right result nevertheless
    long errors = 0;  // an error that is documented
    long again = 0;   // then right with the same objects
    int wrong = 0;
  };

  // What an undisturbed step leaves.
  struct Sound {
    Outcome outcome;
    State before;  // on file without the step
    State after;
    State killedBefore;  // on file if the host is killed before the step
    State killedAfter;
    Files files;
  };

  // A bench with everything opened and prepared, in the world as it was made.
  struct Ready;

  void PutWorld();
  End RunStep(Step const& step, Bench& bench, Refusal const& refusal, Outcome& outcome);
  // The state on file; the library must be whole.
  State OpenedIn(std::string const& folder);
  State Opened() { return OpenedIn(folder_); }
  bool MakeSound(Step const& step);
  // The requests or operations of the step.
  long Count(Refusal refusal);
  void RunOne(Refusal const& refusal);
  void CheckEnd(Refusal const& refusal, End end, Outcome const& outcome);
  // The live objects after the refusal: their library, and the step once more.
  void CheckLive(Bench& bench, End end);
  // What remains of the library if the host is killed now. Empty if that is not promised.
  State Killed();
  void CheckKilled();
  void CheckFiles(bool isWell);
  bool KeepsAll(State const& state) const;
  bool IsAllowed(State const& state) const;
  void Wrong(std::string const& what);

  std::string folder_;
  Files world_;
  Files present_;
  State worldState_;
  Step const* step_ = nullptr;
  Kind const* kind_ = nullptr;
  long at_ = 0;
  Sound sound_;
  std::map<std::string, Counts> counts_;  // by what was refused
  Counts* now_ = nullptr;
  int shown_ = 0;
  int unsound_ = 0;
};

}  // namespace zel::test
