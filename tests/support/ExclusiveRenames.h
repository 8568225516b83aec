#pragma once

#include <array>
#include <bit>
#include <cerrno>
#include <cstddef>
#include <cstdint>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

namespace zelmo::test {

// From here on this thread, and each that it starts, finds itself on file systems that know no renaming which leaves
// alone what has the name, and nothing else that goes by its flags. False when the system does not let itself be told.
inline bool refuseExclusiveRenames() {
    constexpr std::uint32_t flags =
        offsetof(seccomp_data, args) + 4 * sizeof(std::uint64_t) + (std::endian::native == std::endian::big ? 4 : 0);
    std::array<sock_filter, 6> filter{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_renameat2, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, flags),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, 0, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog program{.len = filter.size(), .filter = filter.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

} // namespace zelmo::test
