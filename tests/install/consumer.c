/* A program of another project that links the installed library: it
 * converts a RUXO cross-section file into NEVO, as a host would. */
#include <stdio.h>

#include <quelcnv.h>

int main(int argc, char** argv) {
    if (argc != 3) {
        fprintf(stderr, "uso: consumer ENTRADA SALIDA\n");
        return 2;
    }
    int done = MyDll_ruxo2nevo(argv[1], argv[2]);
    printf("MyDll_ruxo2nevo: %d\n", done);
    return done == 1 ? 0 : 1;
}
