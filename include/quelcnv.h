/*
 * quelcnv: conversion library for road-design and survey data.
 *
 * Every entry point converts one file into another within the call and keeps
 * nothing between calls but the fixed scratch files. Arguments are
 * zero-terminated 8-bit strings (paths in the host's code page, at most 255
 * bytes; a NULL or longer path makes the call write nothing and return 0),
 * except `selec`, a zero-based index. Results: 1 done, 0 failed, unless an
 * entry point says otherwise. Usable from C and C++; on 32-bit Windows the
 * entry points use the standard Windows calling convention.
 *
 * Each comment below gives the entry point's behaviour once its converter is
 * built. Until then the entry point converts nothing and returns 0; the table
 * frame/entry_points.txt, and "quelcnv lista", tell which are available.
 */
#ifndef QUELCNV_H
#define QUELCNV_H

#if defined(_WIN32) && !defined(_WIN64)
#define QUELCNV_CALL __stdcall
#else
#define QUELCNV_CALL
#endif

#if defined(_WIN32)
#define QUELCNV_API
#elif defined(QUELCNV_BUILDING_LIBRARY)
#define QUELCNV_API __attribute__((visibility("default")))
#else
#define QUELCNV_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Library frame ---------------------------------------------------- */

/* Sample entry point: copies "salva" (6 bytes with its terminator) over
 * sMyString, which must hold at least 6 bytes, and writes "salva" into the
 * scratch file "prueba.$$$". Returns nothing. */
QUELCNV_API void QUELCNV_CALL MyDll_ReverseString(char* sMyString);

/* ArcView conversions: declared for the host, not provided. Touch no file
 * and return 0. */
QUELCNV_API int QUELCNV_CALL MyDll_velm2arcview(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_arcview2velm(const char* entrada, const char* salida);

/* ---- Points --------------------------------------------------------------- */

/* Point list to the NEVO points file. 1 done, 0 unreadable input or output. */
QUELCNV_API int QUELCNV_CALL MyDll_puntos2nevo(const char* entrada, const char* salida);
/* Point list to the digital level's upload file. 1 done, 0 failed. */
QUELCNV_API int QUELCNV_CALL MyDll_puntos2nivel(const char* entrada, const char* salida);

/* ---- Cross sections ------------------------------------------------------ */

/* RUXO cross sections to NEVO. 1 done, 0 when entrada or salida can't be opened. */
QUELCNV_API int QUELCNV_CALL MyDll_ruxo2nevo(const char* entrada, const char* salida);
/* ISTRAM/ISPOL, MXROAD, HTRAZADO, CLIP TER and CLIP TRV cross sections to
 * NEVO through the scratch file "temp.$$$". Always 1: a failed import leaves
 * salida unwritten. */
QUELCNV_API int QUELCNV_CALL MyDll_istram2nevo(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_mxroad2nevo(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_htrazado2nevo(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_clip2nevo(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_cliptrv2nevo(const char* entrada, const char* salida);
/* Writes the cross-section surfaces of a LandXML file, one "alignment: surface"
 * per line, to the selection list "$$$$.EJE". Returns nothing. */
QUELCNV_API void QUELCNV_CALL MyDll_seleccionaTransverLandXML(const char* entrada);
/* Surface capa of alignment transver of a LandXML file to NEVO cross sections
 * (WCE: to a RUXO cross-section file). Always 1. */
QUELCNV_API int QUELCNV_CALL MyDll_tralandxml2nevo(const char* transver, const char* capa,
                                                   const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_tralandxml2nevoWCE(const char* transver, const char* capa,
                                                      const char* entrada, const char* salida);
/* CartoMAP cross-section listing (either layout) to a RUXO cross-section file.
 * 1 done, 0 unreadable input or output. */
QUELCNV_API int QUELCNV_CALL MyDll_traCartomap2ruxo(const char* entrada, const char* salida);
/* Comma-separated cross-section points to fixed-width RUXO lines. 1 done,
 * 0 when entrada or salida can't be opened. */
QUELCNV_API int QUELCNV_CALL MyDll_traruxo2nevo(const char* entrada, const char* salida);
/* Cross sections to LandXML: not provided in this version. */
QUELCNV_API int QUELCNV_CALL MyDll_travelm2landxml(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_tracliptrv2landxml(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_traclip2landxml(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_traistram2landxml(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_tramxroad2landxml(const char* entrada, const char* salida);
/* The transposed letters of "lamdxml" are part of the interface: the host
 * binds by this exact name. */
QUELCNV_API int QUELCNV_CALL MyDll_trahtrazado2lamdxml(const char* entrada, const char* salida);

/* ---- Alignments ---------------------------------------------------------- */

/* RUXO alignment to NEVO, in the element form when the limit in
 * pathAp "/quelvar.ini" allows it, else in the intersection-point form.
 * Always 1: an unreadable alignment leaves salida unwritten. */
QUELCNV_API int QUELCNV_CALL MyDll_aruxo2nevo(const char* entrada, const char* salida,
                                              const char* pathAp);
/* RUXO alignment to NEVO in the intersection-point form. Always 1. */
QUELCNV_API int QUELCNV_CALL MyDll_aruxo2nevoWCE(const char* entrada, const char* salida);
/* ISTRAM, HTRAZADO, CLIP PLT, ISTRAM listing and ISPOL alignments to NEVO
 * through the scratch file "temp.$$$", which the ISTRAM listing and ISPOL
 * conversions leave behind. Always 1, except aclipplt2nevo, which returns 0
 * when its input can't be imported. HTRAZADO alignments are read but not
 * converted in this version (no NEVO file is written); the MXROAD conversion
 * is not provided: it reads nothing, writes nothing and returns 1. */
QUELCNV_API int QUELCNV_CALL MyDll_aistram2nevo(const char* entrada, const char* salida,
                                                const char* pathAp);
QUELCNV_API int QUELCNV_CALL MyDll_amxroad2nevo(const char* entrada, const char* salida,
                                                const char* pathAp);
QUELCNV_API int QUELCNV_CALL MyDll_ahtrazado2nevo(const char* entrada, const char* salida,
                                                  const char* pathAp);
QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2nevo(const char* entrada, const char* salida,
                                                 const char* pathAp);
QUELCNV_API int QUELCNV_CALL MyDll_aistramList2nevo(const char* entrada, const char* salida,
                                                    const char* pathAp);
QUELCNV_API int QUELCNV_CALL MyDll_aispol2nevo(const char* entrada, const char* salida,
                                               const char* pathAp);
/* CLIP PLT alignment to a RUXO alignment file. 1 done, 0 unreadable input. */
QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2ruxo(const char* entrada, const char* salida);
/* Writes the names of a LandXML file's alignments, one per line, to the
 * selection list "$$$$.EJE". Always 1. */
QUELCNV_API int QUELCNV_CALL MyDll_seleccionaEjeLandXML(const char* entrada);
/* Alignment number selec (from 0) of a LandXML file to NEVO (WCE: to a RUXO
 * alignment file; pathAp unused). 0 when selec is negative or the alignment
 * is rejected, else 1. */
QUELCNV_API int QUELCNV_CALL MyDll_alandxml2nevo(int selec, const char* entrada, const char* salida,
                                                 const char* pathAp);
QUELCNV_API int QUELCNV_CALL MyDll_alandxml2nevoWCE(int selec, const char* entrada,
                                                    const char* salida, const char* pathAp);
/* RUXO alignment to a LandXML document. Always 1. */
QUELCNV_API int QUELCNV_CALL MyDll_aVELM2LandXML(const char* entrada, const char* salida);
/* ISTRAM, HTRAZADO, CLIP PLT, ISTRAM listing and ISPOL alignments to LandXML
 * through the scratch file "temp.$$$". Always 1. */
QUELCNV_API int QUELCNV_CALL MyDll_aistram2LandXML(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_ahtrazado2LandXML(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2LandXML(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_aistramList2LandXML(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_aispol2LandXML(const char* entrada, const char* salida);
/* ISTRAM alignment to a RUXO alignment file. 1 done, 0 failed. */
QUELCNV_API int QUELCNV_CALL MyDll_aistram2ruxo(const char* entrada, const char* salida);

/* ---- Vertical profiles and superelevation -------------------------------- */

/* ISTRAM, VELM (five-column or ISPOL listing) and ISPOL profiles to NEVO.
 * 1 done; 0 when the input cannot be opened, holds no vertex, or the output
 * cannot be written. */
QUELCNV_API int QUELCNV_CALL MyDll_ristram2nevo(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_rvelm2nevo(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_rispol2nevo(const char* entrada, const char* salida);
/* Writes the profiles of a LandXML file, one "alignment: profile" per line,
 * to the selection list "$$$$.EJE". Returns nothing. */
QUELCNV_API void QUELCNV_CALL MyDll_seleccionaRasanteLandXML(const char* entrada);
/* Profile nombreRas ("alignment: profile") of a LandXML file to a three-column
 * (WCE: five-column) vertex file. Always 1. */
QUELCNV_API int QUELCNV_CALL MyDll_rlandxml2nevo(const char* nombreRas, const char* entrada,
                                                 const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_rlandxml2nevoWCE(const char* nombreRas, const char* entrada,
                                                    const char* salida);
/* Profiles to LandXML: not provided in this version. */
QUELCNV_API int QUELCNV_CALL MyDll_rvelm2landxml(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_ristram2landxml(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_rispol2landxml(const char* entrada, const char* salida);
/* RUXO profile to the five-column tab vertex file. 1 done, 0 failed. */
QUELCNV_API int QUELCNV_CALL MyDll_rasruxo2nevo(const char* entrada, const char* salida);
/* CartoMAP profile to the five-column VELM profile file. 1 done, 0 failed. */
QUELCNV_API int QUELCNV_CALL MyDll_rascartomap2ruxo(const char* entrada, const char* salida);
/* ISPOL and CLIP superelevation tables to the superelevation file.
 * 1 done, 0 failed. */
QUELCNV_API int QUELCNV_CALL MyDll_peralteispol2nevo(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_peralteClip2nevo(const char* entrada, const char* salida);

/* ---- Field data ---------------------------------------------------------- */

/* KL500 level readings to an IGN levelling book with its header texts.
 * 1 done; 0 fewer than three records, or the book cannot be written;
 * 21 entrada can't be opened. */
QUELCNV_API int QUELCNV_CALL MyDll_anivel2ing(const char* entrada, const char* salida,
                                              const char* empresa, const char* operador,
                                              const char* mira1, const char* mira2,
                                              const char* nserie);
/* LEA survey to a Medrix observation file and its code file ("cod");
 * NEVO observation list to Medrix observations. 1 done, 0 failed (for the
 * LEA survey also when no observation follows a station; a code file that
 * cannot be written is left out and the result is still 1). */
QUELCNV_API int QUELCNV_CALL MyDll_topoLea2Medrix(const char* entrada, const char* salida);
QUELCNV_API int QUELCNV_CALL MyDll_lectnevo2medrix(const char* entrada, const char* salida);
/* Robotic total-station readings into a report: not provided in this
 * version. Reads and writes nothing and returns 0. */
QUELCNV_API int QUELCNV_CALL MyDll_procesaRobotizada(const char* lecturas, const char* puntos,
                                                     const char* salida, const char* trabajo,
                                                     const char* operario, const char* descripcion,
                                                     const char* temperatura, const char* fecha,
                                                     const char* hora);
/* Job name, date and time of a robotic readings file, one per line.
 * 1 done, 0 failed. */
QUELCNV_API int QUELCNV_CALL MyDll_procesaCabecera(const char* lecturas, const char* salida);
/* CLIP cross-section report: not provided in this version. */
QUELCNV_API int QUELCNV_CALL MyDll_clipST2ruxo(const char* lecturas, const char* salida1,
                                               const char* salida2);

#ifdef __cplusplus
}
#endif

#endif /* QUELCNV_H */
