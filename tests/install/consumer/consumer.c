/* A host program of the installed library: runs the free vibration of a model and checks
 * that it is valid and left its natural frequencies. Usage: consumer MODELDIR MODELNAME RESULTDIR */
#include <quillmark/quillmark.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int32_t* codes(const char* text, int32_t* length) {
    size_t n = strlen(text);
    int32_t* a = malloc((n + 1) * sizeof *a);
    for (size_t i = 0; i < n; ++i) a[i] = (unsigned char)text[i];
    *length = (int32_t)n;
    return a;
}

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    int32_t ldir, lname, lres, valid = 0, type = 1;
    int32_t* dir = codes(argv[1], &ldir);
    int32_t* name = codes(argv[2], &lname);
    int32_t* res = codes(argv[3], &lres);
    QUILLMARKSOLVER(dir, &ldir, name, &lname, res, &lres, &valid, &type);
    free(dir);
    free(name);
    free(res);
    char path[4096];
    snprintf(path, sizeof path, "%s/NaturalFrequency.bin", argv[3]);
    FILE* f = fopen(path, "rb");
    double first = -1.0, second = 0.0;
    int ok = f && fread(&first, 8, 1, f) == 1 && fread(&second, 8, 1, f) == 1;
    if (f) fclose(f);
    printf("valid %d, first natural frequency %.4f rad/s\n", (int)valid, second);
    return (valid == 1 && ok && first == 0.0 && second > 0.0) ? 0 : 1;
}
