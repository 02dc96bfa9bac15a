// Calls functions of the C interface with each of their pointers null.
#pragma once

#include <functional>
#include <regex>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "c_fixture.h"

// What is done around each call, because it makes or ends something.
struct Around {
  std::function<void()> before = [] {};
  std::function<void()> after = [] {};
};

class CNullSweep : public CFaceTest {
 protected:
  // Calls a function with good arguments, then with one pointer after the other null. Arguments
  // that may be null are given by their places.
  template <typename... Declared, typename... Given>
  void Sweep(char const* name, zel_status (*function)(Declared...), std::set<std::size_t> mayBeNull,
             Around const& around, Given... given) {
    static_assert(sizeof...(Declared) == sizeof...(Given), "an argument for each parameter");
    swept_.insert(name);
    std::tuple<Declared...> const good(given...);
    auto const call = [&](auto const& arguments, zel_status expected) {
      Call(name, function, arguments, expected, around);
    };
    call(good, ZEL_OK);
    WithNulls(call, good, mayBeNull, std::index_sequence_for<Declared...>());
  }
  template <typename CallIt, typename Good, std::size_t... I>
  static void WithNulls(CallIt const& call, Good const& good,
                        std::set<std::size_t> const& mayBeNull,
                        std::index_sequence<I...> /*places*/) {
    (WithNull<I>(call, good, mayBeNull.count(I) != 0), ...);
  }
  template <std::size_t I, typename CallIt, typename Good>
  static void WithNull([[maybe_unused]] CallIt const& call, Good good,
                       [[maybe_unused]] bool mayBeNull) {
    if constexpr (std::is_pointer_v<std::tuple_element_t<I, Good>>) {
      SCOPED_TRACE(I);
      std::get<I>(good) = nullptr;
      call(good, mayBeNull ? ZEL_OK : ZEL_NULL_ARGUMENT);
    }
  }
  template <typename Function, typename Arguments>
  void Call(char const* name, Function* function, Arguments const& arguments, zel_status expected,
            Around const& around) {
    around.before();
    EXPECT_EQ(std::apply(function, arguments), expected) << name << ": " << ctest::Reason();
    if (expected == ZEL_NULL_ARGUMENT && std::string(name) != "zel_reason") {
      EXPECT_TRUE(std::regex_match(ctest::Reason(), std::regex("[a-z_]+ is null")))
          << name << ctest::Reason();
    }
    around.after();
  }

  std::set<std::string> swept_;  // the functions that were called
};
