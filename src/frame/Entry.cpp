#include "quillmark/quillmark.h"
extern "C" void QUILLMARKSOLVER(const int32_t*, const int32_t*, const int32_t*, const int32_t*,
                                const int32_t*, const int32_t*, int32_t* ISINPUTVALID, const int32_t*) {
    *ISINPUTVALID = 0;
}
