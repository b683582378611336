/*
 * quelcnv public API: the library's conversions and its recogniser of file
 * formats for programs other than the host, with the reasons the host's entry
 * points (quelcnv.h) keep to themselves.
 *
 * Usable from C and C++; every function uses the platform's C calling
 * convention. All handles are opaque; every object the library gives is
 * released by the function named for it, and a NULL handle is accepted
 * wherever a handle is released.
 *
 * Texts. Every text passed in or given back (paths, operation names,
 * messages, names read from documents) is zero-terminated, in the context's
 * code page: UTF-8 unless quelcnv_context_set_code_page says otherwise.
 * Texts given back by a report or a summary live as long as it does.
 *
 * Threads. A context is used by one thread at a time; calls on different
 * contexts may run at once from any number of threads, each context keeping
 * its scratch files in its own folder. The host's entry points in quelcnv.h
 * keep their own serialised behaviour on the host's scratch folder.
 */
#ifndef QUELCNV_API_H
#define QUELCNV_API_H

#include <stddef.h>

#if defined(_WIN32)
#if defined(QUELCNV_BUILDING_LIBRARY)
#define QUELCNV_PUBLIC __declspec(dllexport)
#else
#define QUELCNV_PUBLIC
#endif
#elif defined(QUELCNV_BUILDING_LIBRARY)
#define QUELCNV_PUBLIC __attribute__((visibility("default")))
#else
#define QUELCNV_PUBLIC
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Version ------------------------------------------------------------ */

/** @brief The library's version, "major.minor.patch"; a static text. */
QUELCNV_PUBLIC const char* quelcnv_version(void);

/** @brief The version of this API: 1. A program built against a newer
 *  header may check it before calling what this version lacks. */
QUELCNV_PUBLIC int quelcnv_api_version(void);

/* ---- Contexts ----------------------------------------------------------- */

typedef struct quelcnv_context quelcnv_context;

/** Text encodings of a context. */
typedef enum quelcnv_code_page {
    QUELCNV_UTF8 = 0,        /**< UTF-8 (the default) */
    QUELCNV_LIBRARY_8BIT = 1 /**< the host's 8-bit code page: windows-1252, or on
                                  Windows the process's ANSI code page */
} quelcnv_code_page;

/** Receives a message a conversion shows by itself (the LandXML alignment
 *  reader's refusal of an alignment), in the context's code page. */
typedef void (*quelcnv_message_sink)(const char* text, void* user_data);

/**
 * @brief A new context, with a scratch folder of its own: a new private
 *        folder in the system's temporary folder, removed with the context.
 * @return the context, or NULL when its folder could not be made.
 */
QUELCNV_PUBLIC quelcnv_context* quelcnv_context_new(void);

/** @brief Releases the context, and its scratch folder when the library made it. */
QUELCNV_PUBLIC void quelcnv_context_free(quelcnv_context* context);

/**
 * @brief Puts the context's scratch files in another folder, which is created
 *        when missing and must belong to the user and be closed to others
 *        (elsewhere than on Windows). Two contexts on one folder wait for
 *        each other, as the host's calls do.
 * @return 1 when the folder is usable, 0 when not (the context keeps its
 *         folder).
 */
QUELCNV_PUBLIC int quelcnv_context_set_scratch_folder(quelcnv_context* context, const char* folder);

/** @brief The context's scratch folder; lives until the next change or the
 *         context's release. */
QUELCNV_PUBLIC const char* quelcnv_context_scratch_folder(const quelcnv_context* context);

/**
 * @brief Sends the messages conversions show by themselves to the sink,
 *        called on the converting thread. With NULL, the default: they go only
 *        into the report's warnings, never to a message box or the terminal.
 */
QUELCNV_PUBLIC void quelcnv_context_set_message_sink(quelcnv_context* context,
                                                     quelcnv_message_sink sink, void* user_data);

/** @brief The encoding of the context's texts. @return 1, or 0 for an unknown code page. */
QUELCNV_PUBLIC int quelcnv_context_set_code_page(quelcnv_context* context,
                                                 quelcnv_code_page code_page);

/* ---- Operations --------------------------------------------------------- */

/** @brief How many operations there are: one per host entry point. */
QUELCNV_PUBLIC size_t quelcnv_operation_count(void);

/** @brief The name of operation i (the entry point's name without "MyDll_"),
 *         or NULL past the last; static ASCII text. */
QUELCNV_PUBLIC const char* quelcnv_operation_name(size_t index);

/**
 * @brief The operation's argument names separated by blanks ("entrada salida",
 *        "selec entrada salida pathAp"); static ASCII text, NULL for an unknown
 *        operation. selec is a whole number given as text; the others name
 *        files (pathAp the folder of the host's settings file quelvar.ini),
 *        except transver, capa and nombreRas, which name what a LandXML
 *        document holds.
 */
QUELCNV_PUBLIC const char* quelcnv_operation_arguments(const char* operation);

/** Availability of an operation in this version. */
typedef enum quelcnv_availability {
    QUELCNV_UNKNOWN_OPERATION = 0, /**< no operation of that name */
    QUELCNV_BUILT = 1,             /**< converts */
    QUELCNV_READS_ONLY = 2,        /**< reads its input, converts nothing */
    QUELCNV_UNAVAILABLE = 3        /**< kept for the host, converts nothing */
} quelcnv_availability;

QUELCNV_PUBLIC quelcnv_availability quelcnv_operation_availability(const char* operation);

/** @brief The usual extension of the file the operation writes in salida
 *         (".nev", ".xml"...), "" for an operation without salida, NULL for an
 *         unknown one; static text. */
QUELCNV_PUBLIC const char* quelcnv_operation_output(const char* operation);

/** @brief The operation's Spanish help text (plain ASCII, static), or NULL. */
QUELCNV_PUBLIC const char* quelcnv_operation_help(const char* operation);

/* ---- Conversions and their reports -------------------------------------- */

typedef struct quelcnv_report quelcnv_report;

/** Why a conversion did not convert. */
typedef enum quelcnv_reason {
    QUELCNV_DONE = 0,                /**< converted */
    QUELCNV_INPUT_UNREADABLE = 1,    /**< an input could not be opened or read */
    QUELCNV_OUTPUT_UNWRITABLE = 2,   /**< an output could not be created or written */
    QUELCNV_NO_DATA = 3,             /**< the input holds nothing to convert */
    QUELCNV_REJECTED = 4,            /**< the input breaks a rule of its format */
    QUELCNV_MALFORMED = 5,           /**< an XML document that is not well-formed */
    QUELCNV_TOO_LARGE = 6,           /**< the input asks for an absurd allocation */
    QUELCNV_SCRATCH_UNAVAILABLE = 7, /**< the scratch folder is refused or cannot be locked */
    QUELCNV_READER_UNAVAILABLE = 8,  /**< the XML reader could not be created */
    QUELCNV_INVALID_ARGUMENT = 9,    /**< selec negative, or not a whole number */
    QUELCNV_NOT_PROVIDED = 10,       /**< the operation converts nothing in this version */
    QUELCNV_SAME_FILE = 11,          /**< an output is one of the inputs: nothing written */
    QUELCNV_UNKNOWN = 12,            /**< no operation of that name */
    QUELCNV_BAD_ARGUMENTS = 13       /**< wrong number of arguments, or a NULL one */
} quelcnv_reason;

/** What a conversion counted of what it wrote. */
typedef enum quelcnv_count {
    QUELCNV_LINES = 0,    /**< lines of the outputs */
    QUELCNV_SECTIONS = 1, /**< cross sections */
    QUELCNV_POINTS = 2,   /**< points */
    QUELCNV_RECORDS = 3,  /**< key points of an alignment */
    QUELCNV_VERTICES = 4, /**< vertices of a profile */
    QUELCNV_NAMES = 5     /**< names of a selection list */
} quelcnv_count;

/**
 * @brief Runs the operation on the arguments, in the order of
 *        quelcnv_operation_arguments, exactly as the host's entry point of
 *        that name converts: the files written are byte for byte the same.
 *        Scratch files go to the context's folder. Files that would be written
 *        over an input are refused (QUELCNV_SAME_FILE), as the entry points do.
 * @return a report, NULL only when memory ran out; release it with
 *         quelcnv_report_free.
 */
QUELCNV_PUBLIC quelcnv_report* quelcnv_convert(quelcnv_context* context, const char* operation,
                                               size_t argument_count, const char* const* arguments);

QUELCNV_PUBLIC void quelcnv_report_free(quelcnv_report* report);

/** @brief QUELCNV_DONE when converted, else why not. */
QUELCNV_PUBLIC quelcnv_reason quelcnv_report_reason(const quelcnv_report* report);

/**
 * @brief One line in Spanish saying what happened: after a failure the
 *        reason, naming the file and the input line where one applies ("el
 *        fichero de entrada no tiene el formato esperado (línea 3):
 *        eje.ruxo"); after a conversion what it wrote ("12 secciones, 340
 *        puntos -> salida.nev"); empty when there is nothing to say.
 */
QUELCNV_PUBLIC const char* quelcnv_report_text(const quelcnv_report* report);

/** @brief The 1-based input line where the failure was found, or 0. */
QUELCNV_PUBLIC long quelcnv_report_line(const quelcnv_report* report);

/** @brief The integer the host's entry point would have returned. */
QUELCNV_PUBLIC int quelcnv_report_host_result(const quelcnv_report* report);

/** @brief A figure of what was written; 0 when not counted. */
QUELCNV_PUBLIC long quelcnv_report_count(const quelcnv_report* report, quelcnv_count which);

/** @brief The warnings: what looks wrong with the inputs (another format than
 *         the operation reads, all numbers zero, a unit other than metres,
 *         not text) and the messages the conversion showed. */
QUELCNV_PUBLIC size_t quelcnv_report_warning_count(const quelcnv_report* report);
QUELCNV_PUBLIC const char* quelcnv_report_warning(const quelcnv_report* report, size_t index);

/** @brief The files the conversion wrote and left (outputs, the file beside
 *         one, the selection list in the scratch folder), or NULL past the last. */
QUELCNV_PUBLIC size_t quelcnv_report_file_count(const quelcnv_report* report);
QUELCNV_PUBLIC const char* quelcnv_report_file(const quelcnv_report* report, size_t index);

/* ---- Recognising a file ------------------------------------------------- */

typedef struct quelcnv_summary quelcnv_summary;

/** How sure the recogniser is. */
typedef enum quelcnv_certainty {
    QUELCNV_NO_FORMAT = 0, /**< no format fits (or the file could not be read) */
    QUELCNV_POSSIBLE = 1,  /**< the lines have the format's shape, as others' too */
    QUELCNV_LIKELY = 2,    /**< the shape and the values fit */
    QUELCNV_CERTAIN = 3    /**< the format's own words or structure */
} quelcnv_certainty;

/** Lists of names of a LandXML document. */
typedef enum quelcnv_name_list {
    QUELCNV_ALIGNMENTS = 0,     /**< as the alignment selection lists them */
    QUELCNV_PROFILES = 1,       /**< "alignment: profile" */
    QUELCNV_SURFACES = 2,       /**< "alignment: surface" */
    QUELCNV_DESIGN_SURFACES = 3 /**< DesignCrossSectSurf, which no conversion reads */
} quelcnv_name_list;

/**
 * @brief Tells which of the library's formats the file is, from what it
 *        holds, and summarises it.
 * @return a summary (of a file that could not be read: quelcnv_summary_opened
 *         gives 0), NULL only when memory ran out.
 */
QUELCNV_PUBLIC quelcnv_summary* quelcnv_recognise(quelcnv_context* context, const char* path);

QUELCNV_PUBLIC void quelcnv_summary_free(quelcnv_summary* summary);

/** @brief 1 when the file could be opened and read, else 0. */
QUELCNV_PUBLIC int quelcnv_summary_opened(const quelcnv_summary* summary);

/** @brief The format's short Spanish name ("RUXO de eje", "LandXML"), "" when none. */
QUELCNV_PUBLIC const char* quelcnv_summary_format(const quelcnv_summary* summary);

/** @brief What the file holds, as one word: "eje", "rasante", "peralte",
 *         "transversales", "puntos", "nivelacion", "levantamiento",
 *         "robotizada", "landxml", or "desconocido". */
QUELCNV_PUBLIC const char* quelcnv_summary_kind(const quelcnv_summary* summary);

QUELCNV_PUBLIC quelcnv_certainty quelcnv_summary_certainty(const quelcnv_summary* summary);

/** @brief Text lines; what the format's reader would take (key points,
 *         vertices, rows, points, readings); cross sections. */
QUELCNV_PUBLIC long quelcnv_summary_lines(const quelcnv_summary* summary);
QUELCNV_PUBLIC long quelcnv_summary_items(const quelcnv_summary* summary);
QUELCNV_PUBLIC long quelcnv_summary_sections(const quelcnv_summary* summary);

/** @brief The first and last station, when the format has stations.
 *  @return 1 and the station in *station, or 0 when there is none. */
QUELCNV_PUBLIC int quelcnv_summary_first_station(const quelcnv_summary* summary, double* station);
QUELCNV_PUBLIC int quelcnv_summary_last_station(const quelcnv_summary* summary, double* station);

/** @brief A LandXML document's names: how many, and each (NULL past the last). */
QUELCNV_PUBLIC size_t quelcnv_summary_name_count(const quelcnv_summary* summary,
                                                 quelcnv_name_list list);
QUELCNV_PUBLIC const char* quelcnv_summary_name(const quelcnv_summary* summary,
                                                quelcnv_name_list list, size_t index);

/** @brief What looks wrong with the file, one Spanish line each. */
QUELCNV_PUBLIC size_t quelcnv_summary_problem_count(const quelcnv_summary* summary);
QUELCNV_PUBLIC const char* quelcnv_summary_problem(const quelcnv_summary* summary, size_t index);

/* ---- Models: what a file holds ------------------------------------------ */

typedef struct quelcnv_model quelcnv_model;

/** What a model holds. */
typedef enum quelcnv_model_kind {
    QUELCNV_MODEL_NONE = 0,           /**< nothing: the file gave no model (see the problem) */
    QUELCNV_MODEL_ALIGNMENTS = 1,     /**< one or more alignments in plan */
    QUELCNV_MODEL_PROFILE = 2,        /**< a vertical profile */
    QUELCNV_MODEL_SUPERELEVATION = 3, /**< superelevation rows */
    QUELCNV_MODEL_SECTIONS = 4,       /**< cross sections */
    QUELCNV_MODEL_POINTS = 5          /**< named points */
} quelcnv_model_kind;

/** Kinds of element of an alignment in plan. */
typedef enum quelcnv_element_kind {
    QUELCNV_STRAIGHT = 0,
    QUELCNV_ARC = 1,
    QUELCNV_CLOTHOID = 2
} quelcnv_element_kind;

/**
 * One element of an alignment. Azimuths are in grads (400 to the turn),
 * from the y axis towards the x axis; curvatures are 1/radius, positive
 * turning towards growing azimuths, 0 on a straight; a clothoid's curvature
 * runs linearly from start to end. This structure stays as it is for
 * version 1 of this API.
 */
typedef struct quelcnv_element {
    quelcnv_element_kind kind;
    double station; /**< where it starts */
    double length;
    double x, y;    /**< its start point, in the file's plane coordinates */
    double azimuth; /**< its heading at the start */
    double start_curvature, end_curvature;
} quelcnv_element;

/**
 * @brief Reads a file of any format the library reads into a model. With
 *        QUELCNV_MODEL_NONE the recogniser decides what the file is (a file it
 *        cannot tell, or of a kind no model holds, gives no model); another
 *        kind reads the file as that kind. From a LandXML document: `choice`
 *        names an alignment (by name, or index "0", "1"...) with kind
 *        QUELCNV_MODEL_ALIGNMENTS or NONE, a profile as its list gives it
 *        ("ALIGNMENT: PROFILE") with QUELCNV_MODEL_PROFILE, a surface's cross
 *        sections ("ALIGNMENT: SURFACE") with QUELCNV_MODEL_SECTIONS; NULL
 *        takes every alignment, or the document's only profile or surface.
 *        Importers that need a file in between use a private temporary
 *        folder, removed before the call returns. A message a reader shows
 *        (the LandXML alignment reader's refusal of a clothoid) goes to the
 *        context's message sink only.
 * @return the model, NULL only when memory ran out: one that holds nothing
 *         (quelcnv_model_kind gives QUELCNV_MODEL_NONE) says why in
 *         quelcnv_model_problem. Release it with quelcnv_model_free.
 */
QUELCNV_PUBLIC quelcnv_model* quelcnv_model_open(quelcnv_context* context, const char* path,
                                                 quelcnv_model_kind kind, const char* choice);

QUELCNV_PUBLIC void quelcnv_model_free(quelcnv_model* model);

QUELCNV_PUBLIC quelcnv_model_kind quelcnv_model_kind_of(const quelcnv_model* model);

/** @brief Why the model holds nothing, one Spanish sentence naming the file
 *         (as the command says it); "" for a model that holds something. */
QUELCNV_PUBLIC const char* quelcnv_model_problem(const quelcnv_model* model);

/** @brief The unit of lengths: "m", or the unit a LandXML document declares
 *         ("pies" for feet); coordinates are given as the file holds them. */
QUELCNV_PUBLIC const char* quelcnv_model_unit(const quelcnv_model* model);

/** @brief Alignments: how many, and the name of each ("" when the file
 *         names none). */
QUELCNV_PUBLIC size_t quelcnv_model_alignment_count(const quelcnv_model* model);
QUELCNV_PUBLIC const char* quelcnv_model_alignment_name(const quelcnv_model* model,
                                                        size_t alignment);

/** @brief The elements of an alignment: how many, and element i into *element.
 *  @return 1, or 0 (nothing written) past the last. */
QUELCNV_PUBLIC size_t quelcnv_model_element_count(const quelcnv_model* model, size_t alignment);
QUELCNV_PUBLIC int quelcnv_model_element(const quelcnv_model* model, size_t alignment, size_t index,
                                         quelcnv_element* element);

/**
 * @brief The point at a station of an alignment, moved `offset` across it
 *        (positive to the right of the direction of travel), with the
 *        heading (grads) and curvature there; clothoids evaluated exactly
 *        (to well below a micrometre). Any output pointer may be NULL.
 * @return 1, or 0 for a station outside the alignment.
 */
QUELCNV_PUBLIC int quelcnv_model_alignment_at(const quelcnv_model* model, size_t alignment,
                                              double station, double offset, double* x, double* y,
                                              double* azimuth, double* curvature);

/** @brief A profile's vertices: station, elevation and the length of the
 *         vertical curve at it (0 for none). @return 1, or 0 past the last. */
QUELCNV_PUBLIC size_t quelcnv_model_vertex_count(const quelcnv_model* model);
QUELCNV_PUBLIC int quelcnv_model_vertex(const quelcnv_model* model, size_t index, double* station,
                                        double* elevation, double* curve_length);

/** @brief The profile's elevation and grade (a ratio: 0.02 is 2 %) at a
 *         station, on its grades and parabolic vertical curves. Either
 *         pointer may be NULL. @return 1, or 0 outside the profile. */
QUELCNV_PUBLIC int quelcnv_model_profile_at(const quelcnv_model* model, double station,
                                            double* elevation, double* grade);

/** @brief Superelevation rows: station and the two cross-falls in percent. */
QUELCNV_PUBLIC size_t quelcnv_model_row_count(const quelcnv_model* model);
QUELCNV_PUBLIC int quelcnv_model_row(const quelcnv_model* model, size_t index, double* station,
                                     double* first_fall, double* second_fall);

/** @brief Cross sections: how many; the station of each and its number of
 *         points; each point's offset, elevation and code ("" for none),
 *         the points of a section ordered by offset. */
QUELCNV_PUBLIC size_t quelcnv_model_section_count(const quelcnv_model* model);
QUELCNV_PUBLIC int quelcnv_model_section(const quelcnv_model* model, size_t index, double* station,
                                         size_t* point_count);
QUELCNV_PUBLIC int quelcnv_model_section_point(const quelcnv_model* model, size_t section,
                                               size_t index, double* offset, double* elevation,
                                               const char** code);

/** @brief Named points: name, coordinates and code ("" for none). */
QUELCNV_PUBLIC size_t quelcnv_model_point_count(const quelcnv_model* model);
QUELCNV_PUBLIC int quelcnv_model_point(const quelcnv_model* model, size_t index, const char** name,
                                       double* x, double* y, double* z, const char** code);

/**
 * @brief The model as a GeoJSON FeatureCollection (UTF-8, whatever the
 *        context's code page): each alignment a LineString sampled at most
 *        `spacing` apart (1 when not positive) along its curves, with its
 *        name and first and last station; each point a Point with x, y, z
 *        and its name and code. Coordinates are the file's plane
 *        coordinates, as they stand (no reference system is declared).
 * @return a text to release with quelcnv_text_free, or NULL for a model of
 *         another kind (profiles, superelevation and cross sections have no
 *         place in plan) or when memory ran out.
 */
QUELCNV_PUBLIC char* quelcnv_model_geojson(const quelcnv_model* model, double spacing);

/** @brief Releases a text the library gave to release. */
QUELCNV_PUBLIC void quelcnv_text_free(char* text);

#ifdef __cplusplus
}
#endif

#endif /* QUELCNV_API_H */
