// A session that changes a library at random, and what the library must hold at each moment.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>

#include "store/lib_file.h"

namespace zel::test {

class ItemSession {
 public:
  using Random = std::mt19937_64;
  using Keys = std::pair<std::int32_t, std::int32_t>;
  // The values of the items of the session's bank, by their keys, and a text of the library.
  struct State {
    std::map<Keys, std::int32_t> items;
    std::string memo;

    bool operator==(State const& other) const { return items == other.items && memo == other.memo; }
  };

  // `state` is what the library holds.
  ItemSession(LibFile_i& library, State state, Random& random);
  ~ItemSession();
  ItemSession(ItemSession const&) = delete;
  ItemSession& operator=(ItemSession const&) = delete;

  // Makes the bank in a library that does not have it.
  void MakeBank();
  // Writes the items of a state into an empty bank, and the memo.
  void Fill(State const& state);
  // Writes, overwrites and deletes some items, and sometimes the memo.
  void Change(int steps);
  void Flush();

  // What the library held after the last flush that is complete, and what it holds after the one
  // that is under way, or will be next.
  State const& Flushed() const { return flushed_; }
  State const& Next() const { return next_; }
  // The items that were changed since that flush.
  std::set<Keys> const& Touched() const { return touched_; }

  // Walks the bank, reads each item by its key as well, and the memo. Throws a block error, or
  // std::runtime_error for an item that is not in order.
  static State Read(LibFile_i& library);
  // How many items of `flushed` the state does not hold as they were, except those that were
  // changed since.
  static long Lost(State const& found, State const& flushed, std::set<Keys> const& touched);

 private:
  class Bank;

  void Put(Keys keys);
  void Delete();

  LibFile_i& library_;
  Random& random_;
  std::unique_ptr<Bank> bank_;
  State flushed_;
  State next_;
  std::set<Keys> touched_;
};

}  // namespace zel::test
