/* Reads the alignment of a file of any format the library reads and says
 * where a station lies, and a point beside it:
 *     evaluate_example FILE STATION [OFFSET]
 * for instance
 *     evaluate_example samples/alignment/eje.ruxo 248 3.5
 * Exit status 0 when the station is on the alignment, 1 when not. */
#include <stdio.h>
#include <stdlib.h>

#include "quelcnv_api.h"

int main(int argc, char** argv) {
    if (argc < 3) {
        fprintf(stderr, "usage: %s FILE STATION [OFFSET]\n", argv[0]);
        return 2;
    }
    double station = atof(argv[2]), offset = argc > 3 ? atof(argv[3]) : 0.0;
    quelcnv_context* context = quelcnv_context_new();
    if (context == NULL) return 2;
    quelcnv_model* model = quelcnv_model_open(context, argv[1], QUELCNV_MODEL_ALIGNMENTS, NULL);

    int status = 1;
    double x, y, azimuth, curvature;
    if (quelcnv_model_kind_of(model) != QUELCNV_MODEL_ALIGNMENTS) {
        printf("%s\n", quelcnv_model_problem(model));
    } else if (quelcnv_model_alignment_at(model, 0, station, offset, &x, &y, &azimuth,
                                          &curvature)) {
        printf("%zu elements; station %.3f, offset %.3f: x %.4f y %.4f azimuth %.4f radius %.3f\n",
               quelcnv_model_element_count(model, 0), station, offset, x, y, azimuth,
               curvature != 0.0 ? 1.0 / curvature : 0.0);
        status = 0;
    } else {
        printf("station %.3f is not on the alignment\n", station);
    }
    quelcnv_model_free(model);
    quelcnv_context_free(context);
    return status;
}
