// The exported main entry of the shared library.
#include <exception>
#include <iostream>
#include <string>

#include "base/GlobalParameter.h"
#include "frame/QuillmarkSolver.h"
#include "quillmark/quillmark.h"

namespace {

// A text from an array of character codes: element i gives character i, its low 8 bits.
// Of a length above the text length of 1000 one character more is taken, enough for the
// run to refuse it without copying (or reading) a huge array.
std::string text_from_codes(const int32_t* codes, const int32_t* length) {
    std::string text;
    if (codes == nullptr || length == nullptr || *length <= 0) return text;
    const int32_t n = *length > 1001 ? 1001 : *length;
    text.resize(static_cast<std::size_t>(n));
    for (int32_t i = 0; i < n; ++i)
        text[static_cast<std::size_t>(i)] = static_cast<char>(static_cast<uint32_t>(codes[i]) & 0xFFU);
    return text;
}

// One run for either export; THREADS null takes the machine's cores.
void solve(const int32_t* INPUTFILEDIRARRAY, const int32_t* INPUTFILEDIRLENGTH, const int32_t* INPUTFILENAMEARRAY,
           const int32_t* INPUTFILENAMELENGTH, const int32_t* RESULTFILEDIRARRAY, const int32_t* RESULTFILEDIRLENGTH,
           int32_t* ISINPUTVALID, const int32_t* CALCULATIONTYPE, const int32_t* THREADS) {
    if (ISINPUTVALID == nullptr) return;
    *ISINPUTVALID = 0;
    try {
        const int calculationtype = CALCULATIONTYPE != nullptr ? *CALCULATIONTYPE : 0;
        const int threads = THREADS != nullptr ? *THREADS : 0;
        *ISINPUTVALID = qm::run_solver(text_from_codes(INPUTFILEDIRARRAY, INPUTFILEDIRLENGTH),
                                       text_from_codes(INPUTFILENAMEARRAY, INPUTFILENAMELENGTH),
                                       text_from_codes(RESULTFILEDIRARRAY, RESULTFILEDIRLENGTH), calculationtype,
                                       false, threads);
    } catch (const std::exception& e) {
        std::cerr << "Quillmark: the run ended early: " << e.what() << "\n";
        *ISINPUTVALID = 0;
    } catch (...) {
        std::cerr << "Quillmark: the run ended early.\n";
        *ISINPUTVALID = 0;
    }
}

}  // namespace

extern "C" QUILLMARK_API void QUILLMARKSOLVER(const int32_t* INPUTFILEDIRARRAY, const int32_t* INPUTFILEDIRLENGTH,
                                              const int32_t* INPUTFILENAMEARRAY,
                                              const int32_t* INPUTFILENAMELENGTH,
                                              const int32_t* RESULTFILEDIRARRAY,
                                              const int32_t* RESULTFILEDIRLENGTH, int32_t* ISINPUTVALID,
                                              const int32_t* CALCULATIONTYPE) {
    solve(INPUTFILEDIRARRAY, INPUTFILEDIRLENGTH, INPUTFILENAMEARRAY, INPUTFILENAMELENGTH, RESULTFILEDIRARRAY,
          RESULTFILEDIRLENGTH, ISINPUTVALID, CALCULATIONTYPE, nullptr);
}

extern "C" QUILLMARK_API void QUILLMARKSOLVERTHREADS(const int32_t* INPUTFILEDIRARRAY,
                                                     const int32_t* INPUTFILEDIRLENGTH,
                                                     const int32_t* INPUTFILENAMEARRAY,
                                                     const int32_t* INPUTFILENAMELENGTH,
                                                     const int32_t* RESULTFILEDIRARRAY,
                                                     const int32_t* RESULTFILEDIRLENGTH, int32_t* ISINPUTVALID,
                                                     const int32_t* CALCULATIONTYPE, const int32_t* THREADS) {
    solve(INPUTFILEDIRARRAY, INPUTFILEDIRLENGTH, INPUTFILENAMEARRAY, INPUTFILENAMELENGTH, RESULTFILEDIRARRAY,
          RESULTFILEDIRLENGTH, ISINPUTVALID, CALCULATIONTYPE, THREADS);
}
