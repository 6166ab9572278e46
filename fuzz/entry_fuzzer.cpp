// libFuzzer target over the main entry: the input is the text of a model file, read and
// checked (calculation type 0) and, when it is valid, calculated (type 1) in a result
// directory of its own. Side-file names of the model start in that directory, where the
// fuzzer leaves copies of a harmonic file and a custom damping file.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "quillmark/quillmark.h"

namespace {

const std::string& work_dir() {
    static const std::string dir = [] {
        char name[] = "/tmp/quillmark_fuzz_XXXXXX";
        const char* made = mkdtemp(name);
        if (made == nullptr) std::abort();
        const std::string folder(made);
        for (const char* side : {"harmonics-normal.txt", "harmonics-misfire.txt"}) {
            std::ifstream from(std::string(QM_EXAMPLES_DIR) + "/geared-four-stroke/" + side, std::ios::binary);
            std::ofstream to(folder + "/" + side, std::ios::binary);
            to << from.rdbuf();
        }
        return folder;
    }();
    return dir;
}

std::vector<int32_t> codes(const std::string& text) { return {text.begin(), text.end()}; }

int32_t run(const std::string& dir, const std::string& name, int32_t type) {
    const auto d = codes(dir), n = codes(name);
    const auto dl = static_cast<int32_t>(d.size()), nl = static_cast<int32_t>(n.size());
    int32_t valid = -1;
    QUILLMARKSOLVER(d.data(), &dl, n.data(), &nl, d.data(), &dl, &valid, &type);
    return valid;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string& dir = work_dir();
    {
        std::ofstream model(dir + "/model.qmk", std::ios::binary | std::ios::trunc);
        model.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    if (run(dir, "model.qmk", 0) == 1) run(dir, "model.qmk", 1);
    return 0;
}
