// Work that several threads do at the same time.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <exception>
#include <string>
#include <thread>
#include <vector>

namespace zel::test {

// Calls `work` with 1, 2, ... in as many threads. Returns what went wrong in each, one line each.
template <typename Work>
std::string InThreads(int count, Work const& work) {
  std::vector<std::string> problems(static_cast<std::size_t>(count));
  std::vector<std::thread> threads;
  for (int n = 1; n <= count; ++n) {
    threads.emplace_back([&, n] {
      std::string& problem = problems[static_cast<std::size_t>(n - 1)];
      try {
        work(n);
      } catch (std::exception const& error) {
        problem = "thread " + std::to_string(n) + ": " + error.what() + "\n";
      } catch (unsigned long address) {
        problem = "thread " + std::to_string(n) + ": " + BlockError(address).what() + "\n";
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::string all;
  for (std::string const& problem : problems) all += problem;
  return all;
}

}  // namespace zel::test
