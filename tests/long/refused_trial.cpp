#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <new>
#include <utility>

#include "tests/long/refused_calls.h"

namespace zel::test {
namespace {

std::string Difference(State const& state, State const& before, State const& after) {
  auto const at = [](State const& all, std::string const& place) {
    auto const found = all.find(place);
    return found == all.end() ? std::string("absent") : found->second;
  };
  std::string text;
  State all = before;
  all.insert(after.begin(), after.end());
  all.insert(state.begin(), state.end());
  for (auto const& [place, value] : all) {
    std::string const now = at(state, place);
    if (now == at(before, place) && now == at(after, place)) continue;
    char const* const which = now == at(before, place)  ? "old"
                              : now == at(after, place) ? "new"
                                                        : now.c_str();
    text += "\n    " + place + ": " + which;
  }
  return text;
}

std::string FirstDifference(Files::const_iterator now, Files::const_iterator end,
                            std::string const& text) {
  if (now == end) return "absent";
  auto const at = std::mismatch(now->second.begin(), now->second.end(), text.begin(), text.end());
  auto const offset = static_cast<std::size_t>(at.first - now->second.begin());
  return "byte " + std::to_string(offset) + ", \"" + now->second.substr(offset, 60) +
         "\" instead of \"" + text.substr(offset, 60) + "\"";
}

Handle<LibFile> Open(std::string const& path, Opens opens) {
  ZelOpenOptions options;
  options.mode = opens == Opens::kRead ? accRead : accUpdate;
  if (opens == Opens::kMarked) options.writes = writesMarked;
  if (opens == Opens::kHeld) options.writes = writesHeld;
  openErrors error{};
  return Handle<LibFile>(OpenLibrary(path.c_str(), options, error));
}

}  // namespace

Trials::Trials(std::string folder) : folder_(std::move(folder)) {
  MakeWorld(folder_);
  world_ = FilesIn(folder_);
  present_ = world_;
  worldState_ = Opened();
}

void Trials::Wrong(std::string const& what) {
  constexpr int kShown = 3;  // of each step and kind of refusal
  ++now_->wrong;
  if (++shown_ > kShown) return;
  std::printf("%s, %s, number %ld (%s): %s\n", step_->name.c_str(), kind_->name, at_,
              Refusing::Operation(), what.c_str());
  std::fflush(stdout);
}

void Trials::PutWorld() {
  PutFiles(folder_, world_, present_);
  present_ = world_;
}

State Trials::OpenedIn(std::string const& folder) {
  Handle<LibFile> const library = Open(folder + "/" + kLibraryFile, Opens::kRead);
  if (library == nullptr) return {{"library", kUnreadable}};
  FindingCounter sink;
  VerifyLibrary(library.get(), sink);
  State state = StateOf(library.get());
  if (sink.damage != 0) state["damage"] = sink.last;
  return state;
}

// A bench in the world as it was made, with what the step needs.
struct Trials::Ready : Bench {
  Ready(std::string const& folderOfWorld, Step const& step) : Bench(folderOfWorld) {
    if (step.opens != Opens::kNothing) {
      library = Open(folder + "/" + kLibraryFile, step.opens);
      maint.reset(LibMaint::NewLibMaint(library.get()));
    }
    if (step.prepare != nullptr) step.prepare(*this);
  }
  ~Ready() {
    if (stream != nullptr) std::fclose(stream);
    // Objects on a library end before it.
    columns.reset();
    search.reset();
    extra.reset();
    maint.reset();
  }
};

Trials::End Trials::RunStep(Step const& step, Bench& bench, Refusal const& refusal,
                            Outcome& outcome) {
  Refusing const refusing(refusal);
  try {
    step.run(bench, outcome);
    Refusing::End();
    return outcome.HasFailed() ? End::kFailed : End::kWell;
  } catch (std::bad_alloc const&) {
    Refusing::End();
    return End::kNoMemory;
  } catch (unsigned long) {
    Refusing::End();
    return End::kBlockError;
  } catch (...) {
    Refusing::End();
    return End::kOther;
  }
}

bool Trials::MakeSound(Step const& step) {
  sound_ = {};
  PutWorld();
  { Ready const bench(folder_, step); }
  sound_.before = Opened();
  present_ = FilesIn(folder_);
  PutWorld();
  {
    Ready bench(folder_, step);
    sound_.killedBefore = Killed();
    if (RunStep(step, bench, {}, sound_.outcome) != End::kWell) return false;
    sound_.killedAfter = Killed();
  }
  present_ = FilesIn(folder_);
  sound_.after = Opened();
  sound_.files = present_;
  return sound_.after.count("damage") == 0;
}

long Trials::Count(Refusal refusal) {
  refusal.at = 0;
  PutWorld();
  Outcome outcome;
  {
    Ready bench(folder_, *step_);
    RunStep(*step_, bench, refusal, outcome);
  }
  long const count = Refusing::Count();
  present_ = FilesIn(folder_);
  if (!(outcome == sound_.outcome)) Wrong("another result undisturbed");
  return count;
}

// What an import that fails leaves: everything that was there, and any part of the document.
bool Trials::KeepsAll(State const& state) const {
  if (state.count("damage") != 0) return false;
  for (auto const& [place, value] : state) {
    if (value == kUnreadable) return false;
  }
  for (auto const& [place, value] : sound_.before) {
    bool const isData = place.rfind("item ", 0) == 0 || place.rfind("bank ", 0) == 0 ||
                        place.rfind("ID ", 0) == 0 || place.rfind("CAS ", 0) == 0;
    auto const now = state.find(place);
    if (!isData || (place.rfind("CAS ", 0) == 0 && value == "0")) continue;
    if (now == state.end() || now->second != value) return false;
  }
  return true;
}

// A change that fails is undone, as far as the files can be written: what a file that takes nothing
// any more holds then depends on the place.
bool Trials::IsAllowed(State const& state) const {
  bool const isForEver = kind_->refusal.what != Refused::kMemory && kind_->refusal.forEver;
  if (isForEver && (step_->traits & kWhole) == 0) return true;
  if (state == sound_.before || state == sound_.after) return true;
  if ((step_->traits & kMayLose) != 0 && state == worldState_) return true;
  if ((step_->traits & kImports) != 0) return KeepsAll(state);
  if ((step_->traits & kParts) == 0) return false;
  auto const isIn = [](State const& all, std::string const& place, std::string const& value) {
    auto const found = all.find(place);
    return found != all.end() && found->second == value;
  };
  for (auto const& [place, value] : state) {
    if (!isIn(sound_.before, place, value) && !isIn(sound_.after, place, value)) return false;
  }
  for (auto const& [place, value] : sound_.before) {
    if (state.count(place) == 0 && sound_.after.count(place) != 0) return false;
  }
  return true;
}

void Trials::CheckEnd(Refusal const& refusal, End end, Outcome const& outcome) {
  bool const isMemory = refusal.what == Refused::kMemory;
  if (end == End::kWell) {
    ++now_->right;
    if (!(outcome == sound_.outcome)) {
      Wrong(std::string("a wrong result:\n") + outcome.Text() + "instead of\n" +
            sound_.outcome.Text());
    }
    return;
  }
  ++now_->errors;
  if (Refusing::Count() < at_) Wrong("failed without a refusal");
  if (end == End::kOther) Wrong("another exception");
  if (end == End::kNoMemory && !isMemory) Wrong("std::bad_alloc of a failed operation");
  // What a followed import cannot keep is a write that failed.
  bool const isFollowed = (step_->traits & kImports) != 0;
  if (end == End::kBlockError && isMemory && !isFollowed) Wrong("a block error for lack of memory");
}

// With held-back writes that is the state of a flush; with marked ones the same, or there is a
// mark.
State Trials::Killed() {
  if (step_->opens != Opens::kMarked && step_->opens != Opens::kHeld) return {};
  Files files = FilesIn(folder_);
  if (files.count("world.lb1.open") != 0) return {};
  std::string const folder = folder_ + "/killed";
  std::filesystem::create_directories(folder);
  PutFiles(folder, files, FilesIn(folder));
  return OpenedIn(folder);
}

void Trials::CheckKilled() {
  State const state = Killed();
  if (state == sound_.killedBefore || state == sound_.killedAfter) return;
  if (step_->opens == Opens::kMarked && state.empty()) return;
  Wrong("after a kill:" + Difference(state, sound_.killedBefore, sound_.killedAfter));
}

void Trials::CheckLive(Bench& bench, End end) {
  bool isAsBefore = true;
  if (bench.library != nullptr) {
    openErrors const reopened = bench.library->ReopenLibFile();
    if (reopened != openOk) return Wrong("cannot be reopened");
    State const live = StateOf(bench.library.get());
    if (!IsAllowed(live)) {
      Wrong("the open library:" + Difference(live, sound_.before, sound_.after));
    }
    isAsBefore = live == sound_.before;
  }
  if (end == End::kWell || !isAsBefore || (step_->traits & kOnce) != 0) return;
  Outcome outcome;
  End const again = RunStep(*step_, bench, {}, outcome);
  if (again != End::kWell || !(outcome == sound_.outcome)) {
    return Wrong("wrong when tried again:\n" + std::string(outcome.Text()));
  }
  ++now_->again;
}

void Trials::CheckFiles(bool isWell) {
  present_ = FilesIn(folder_);
  for (auto const& [name, text] : sound_.files) {
    auto const before = world_.find(name);
    bool const isTouched = before == world_.end() || before->second != text;
    if (isTouched && !isWell) continue;
    auto const now = present_.find(name);
    // What is not needed in a library's file depends on what failed; its state is compared.
    bool const isLibrary = name.rfind("world.lb", 0) == 0;
    // Room that was allocated ahead stays where a file cannot be cut any more.
    if (isLibrary && (isTouched || kind_->refusal.forEver || (step_->traits & kImports) != 0)) {
      continue;
    }
    if (now == present_.end() || now->second != text) {
      Wrong("the file " + name + ": " + FirstDifference(now, present_.end(), text));
    }
  }
}

void Trials::RunOne(Refusal const& refusal) {
  PutWorld();
  Outcome outcome;
  End end;
  {
    Ready bench(folder_, *step_);
    end = RunStep(*step_, bench, refusal, outcome);
    CheckEnd(refusal, end, outcome);
    CheckKilled();
    CheckLive(bench, end);
    try {
      if (bench.library != nullptr) bench.library->CloseLibFile();
    } catch (unsigned long) {
      Wrong("cannot be closed");
    }
  }
  CheckFiles(end == End::kWell && (step_->traits & kLeavesOut) == 0);
  State const state = Opened();
  if (!IsAllowed(state)) Wrong("on file:" + Difference(state, sound_.before, sound_.after));
}

bool Trials::Begin(Step const& step) {
  step_ = &step;
  at_ = 0;
  SetNow(step, "undisturbed", 0);
  if (MakeSound(step)) return true;
  std::printf("%s fails undisturbed:\n%s\n", step.name.c_str(), sound_.outcome.Text());
  ++unsound_;
  return false;
}

void Trials::RunAll(Kind const& kind, long every, long from) {
  kind_ = &kind;
  at_ = 0;
  shown_ = 0;
  now_ = &counts_[kind.name];
  SetNow(*step_, kind.name, 0);
  long const requests = Count(kind.refusal);
  for (at_ = from; at_ <= requests; at_ += every) {
    SetNow(*step_, kind.name, at_);
    Refusal refusal = kind.refusal;
    refusal.at = at_;
    ++now_->refused;
    long const before = Refusing::Held();
    RunOne(refusal);
    if (Refusing::Held() <= before) continue;
    // What is kept for the next time is not kept twice.
    long const again = Refusing::Held();
    RunOne(refusal);
    bool const parses = (step_->traits & (kImports | kParses)) != 0;
    if (Refusing::Held() > again && !parses) Wrong("memory is lost");
  }
}

int Trials::Print() const {
  Counts all;
  std::printf("%8s %8s %8s %8s %8s  kind\n", "refused", "right", "errors", "again", "wrong");
  auto const print = [](Counts const& counts, char const* name) {
    std::printf("%8ld %8ld %8ld %8ld %8d  %s\n", counts.refused, counts.right, counts.errors,
                counts.again, counts.wrong, name);
  };
  for (auto const& [name, counts] : counts_) {
    print(counts, name.c_str());
    all.refused += counts.refused;
    all.right += counts.right;
    all.errors += counts.errors;
    all.again += counts.again;
    all.wrong += counts.wrong;
  }
  print(all, "all");
  return all.wrong + unsound_;
}

}  // namespace zel::test
