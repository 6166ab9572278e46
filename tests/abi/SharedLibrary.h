// The shared library as a host program sees it: loaded once, symbols looked up by name, and
// the entry called with arrays of character codes.
#pragma once

#include <dlfcn.h>

#include <cstdint>
#include <string>
#include <vector>

#include "quillmark/quillmark.h"

namespace qm::test {

// A symbol of the shared library, nullptr when the library or the symbol is missing.
template <typename F>
F shared_symbol(const char* name) {
    static void* const handle = dlopen(QM_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    return handle == nullptr ? nullptr : reinterpret_cast<F>(dlsym(handle, name));
}

using Solver = decltype(&QUILLMARKSOLVER);

// Calls the entry with the three texts as character codes, `high` added to every code, and
// returns ISINPUTVALID (99 when the entry cannot be found).
inline int32_t shared_solver(const std::string& dir, const std::string& name, const std::string& result,
                             int32_t type, int32_t high = 0) {
    const Solver solver = shared_symbol<Solver>("QUILLMARKSOLVER");
    if (solver == nullptr) return 99;
    auto codes = [high](const std::string& s) {
        std::vector<int32_t> c;
        for (unsigned char ch : s) c.push_back(ch + high);
        return c;
    };
    const auto d = codes(dir), n = codes(name), r = codes(result);
    const auto dl = static_cast<int32_t>(d.size()), nl = static_cast<int32_t>(n.size()),
               rl = static_cast<int32_t>(r.size());
    int32_t valid = -7;
    solver(d.data(), &dl, n.data(), &nl, r.data(), &rl, &valid, &type);
    return valid;
}

}  // namespace qm::test
