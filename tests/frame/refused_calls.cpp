#include "tests/frame/refused_calls.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

#include <array>
#include <bit>
#include <cstddef>

namespace zel::test {

// Where the low word of an argument is.
constexpr std::size_t kLowWord =
    std::endian::native == std::endian::little ? 0 : sizeof(std::uint32_t);

bool RefuseCalls(Refusal const& refusal) {
  auto const at = [](std::size_t offset) {
    return sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset));
  };
  auto const answer = [](std::uint32_t value) {
    return sock_filter BPF_STMT(BPF_RET | BPF_K, value);
  };
  // With a flag or a least value all other calls pass; without an argument the least value is 0.
  std::size_t const argument =
      refusal.argument < 0 ? 0 : static_cast<std::size_t>(refusal.argument);
  auto const test = refusal.flag != 0
                        ? sock_filter BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, refusal.flag, 0, 1)
                        : sock_filter BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, refusal.least, 0, 1);
  std::array filter = {
      at(offsetof(seccomp_data, nr)),
      sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(refusal.call), 0,
                           3),
      at(offsetof(seccomp_data, args) + argument * sizeof(std::uint64_t) + kLowWord),
      test,
      answer(SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(refusal.error)),
      answer(SECCOMP_RET_ALLOW),
  };
  sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

}  // namespace zel::test
