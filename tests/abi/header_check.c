/* Compiled as C: proves the public header is valid C and links against the shared library. */
#include "quillmark/quillmark.h"

int main(void) {
    void (*solver)(const int32_t*, const int32_t*, const int32_t*, const int32_t*,
                   const int32_t*, const int32_t*, int32_t*, const int32_t*) = QUILLMARKSOLVER;
    return solver == 0;
}
