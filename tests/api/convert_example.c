/* Converts a file through the public API and says why when it cannot:
 *     convert_example OPERATION ARGUMENT...
 * for instance
 *     convert_example ruxo2nevo samples/crosssection/eje.ruxo eje.nev
 * Exit status 0 when converted, 1 when not, 2 when no context could be made. */
#include <stdio.h>

#include "quelcnv_api.h"

int main(int argc, char** argv) {
    if (argc < 2) {
        fprintf(stderr, "usage: %s OPERATION ARGUMENT...\n", argv[0]);
        return 2;
    }
    quelcnv_context* context = quelcnv_context_new();
    if (context == NULL) return 2;

    const char* operation = argv[1];
    quelcnv_report* report =
        quelcnv_convert(context, operation, (size_t)(argc - 2), (const char* const*)(argv + 2));
    quelcnv_reason reason = quelcnv_report_reason(report);

    printf("quelcnv %s, %s: %s\n", quelcnv_version(), operation, quelcnv_report_text(report));
    if (reason != QUELCNV_DONE && quelcnv_report_line(report) > 0)
        printf("input line %ld\n", quelcnv_report_line(report));
    for (size_t i = 0; i < quelcnv_report_warning_count(report); ++i)
        printf("warning: %s\n", quelcnv_report_warning(report, i));
    for (size_t i = 0; i < quelcnv_report_file_count(report); ++i)
        printf("written: %s\n", quelcnv_report_file(report, i));

    quelcnv_report_free(report);
    quelcnv_context_free(context);
    return reason == QUELCNV_DONE ? 0 : 1;
}
