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
 * Each entry point's comment gives its arguments, its result and the files it
 * writes. "The scratch folder" is the folder of the fixed scratch files
 * (QUELCNV_SCRATCH, else the host's temporary folder); every failure result
 * leaves no partial output behind. Entry points marked "not provided" keep
 * their names and arguments for the host and convert nothing.
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

/* ---- Library frame ----------------------------------------------------- */

/**
 * @brief Sample entry point: copies "salva" with its terminator over sMyString and writes
 *        "salva" into the scratch file "prueba.$$$".
 * @param sMyString buffer of at least 6 bytes; receives "salva".
 * @return nothing.
 * @par Files written
 * The scratch file "prueba.$$$".
 */
QUELCNV_API void QUELCNV_CALL MyDll_ReverseString(char* sMyString);

/**
 * @brief ArcView conversion, declared for the host and not provided: touches no file.
 * @param entrada path of the input file.
 * @param salida path of the output file, created or overwritten.
 * @return 0 always.
 * @par Files written
 * None.
 */
QUELCNV_API int QUELCNV_CALL MyDll_velm2arcview(const char* entrada, const char* salida);

/**
 * @brief ArcView conversion, declared for the host and not provided: touches no file.
 * @param entrada path of the input file.
 * @param salida path of the output file, created or overwritten.
 * @return 0 always.
 * @par Files written
 * None.
 */
QUELCNV_API int QUELCNV_CALL MyDll_arcview2velm(const char* entrada, const char* salida);

/* ---- Points ------------------------------------------------------------ */

/**
 * @brief Point list (number, x, y, elevation, code) to the NEVO points file.
 * @param entrada point list.
 * @param salida NEVO points file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_puntos2nevo(const char* entrada, const char* salida);

/**
 * @brief Point list to the digital level's upload file.
 * @param entrada point list.
 * @param salida upload file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_puntos2nivel(const char* entrada, const char* salida);

/* ---- Cross sections ---------------------------------------------------- */

/**
 * @brief RUXO cross sections to the NEVO cross-section file.
 * @param entrada RUXO cross-section file.
 * @param salida NEVO cross-section file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_ruxo2nevo(const char* entrada, const char* salida);

/**
 * @brief ISTRAM/ISPOL cross sections to the NEVO cross-section file, through the RUXO
 *        cross-section file in the scratch file "temp.$$$" (removed afterwards).
 * @param entrada ISTRAM/ISPOL cross-section file.
 * @param salida NEVO cross-section file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_istram2nevo(const char* entrada, const char* salida);

/**
 * @brief MXROAD cross sections to the NEVO cross-section file, through the RUXO cross-section
 *        file in the scratch file "temp.$$$" (removed afterwards).
 * @param entrada MXROAD cross-section file.
 * @param salida NEVO cross-section file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_mxroad2nevo(const char* entrada, const char* salida);

/**
 * @brief HTRAZADO cross sections to the NEVO cross-section file, through the RUXO cross-section
 *        file in the scratch file "temp.$$$" (removed afterwards).
 * @param entrada HTRAZADO cross-section file.
 * @param salida NEVO cross-section file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_htrazado2nevo(const char* entrada, const char* salida);

/**
 * @brief CLIP TER cross sections to the NEVO cross-section file, through the RUXO cross-section
 *        file in the scratch file "temp.$$$" (removed afterwards).
 * @param entrada CLIP TER cross-section file.
 * @param salida NEVO cross-section file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_clip2nevo(const char* entrada, const char* salida);

/**
 * @brief CLIP TRV cross sections to the NEVO cross-section file, through the RUXO cross-section
 *        file in the scratch file "temp.$$$" (removed afterwards).
 * @param entrada CLIP TRV cross-section file.
 * @param salida NEVO cross-section file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_cliptrv2nevo(const char* entrada, const char* salida);

/**
 * @brief Lists the cross-section surfaces of a LandXML document, one "alignment: surface" a
 *        line, for the host to choose from.
 * @param entrada LandXML document.
 * @return nothing.
 * @par Files written
 * The selection list "$$$$.EJE" in the scratch folder.
 */
QUELCNV_API void QUELCNV_CALL MyDll_seleccionaTransverLandXML(const char* entrada);

/**
 * @brief The points of one surface of one alignment of a LandXML document to the NEVO
 *        cross-section file.
 * @param transver name of the alignment whose cross sections are taken (any case).
 * @param capa name of the surface taken (any case).
 * @param entrada LandXML document.
 * @param salida NEVO cross-section file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida (empty when the names match nothing); "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_tralandxml2nevo(const char* transver, const char* capa,
                                                   const char* entrada, const char* salida);

/**
 * @brief The points of one surface of one alignment of a LandXML document to a RUXO
 *        cross-section file.
 * @param transver name of the alignment whose cross sections are taken (any case).
 * @param capa name of the surface taken (any case).
 * @param entrada LandXML document.
 * @param salida RUXO cross-section file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida (empty when the names match nothing).
 */
QUELCNV_API int QUELCNV_CALL MyDll_tralandxml2nevoWCE(const char* transver, const char* capa,
                                                      const char* entrada, const char* salida);

/**
 * @brief CartoMAP cross-section listing (station or distance layout) to a RUXO cross-section
 *        file.
 * @param entrada CartoMAP listing.
 * @param salida RUXO cross-section file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_traCartomap2ruxo(const char* entrada, const char* salida);

/**
 * @brief Comma-separated cross-section points to fixed-width lines.
 * @param entrada comma-separated points.
 * @param salida fixed-width file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_traruxo2nevo(const char* entrada, const char* salida);

/**
 * @brief Comma-separated cross-section points to a LandXML document of cross sections.
 * @param entrada comma-separated points.
 * @param salida LandXML document to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_travelm2landxml(const char* entrada, const char* salida);

/**
 * @brief CLIP TRV cross sections to a LandXML document, through the scratch file "temp.$$$"
 *        (removed afterwards).
 * @param entrada CLIP TRV cross-section file.
 * @param salida LandXML document to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_tracliptrv2landxml(const char* entrada, const char* salida);

/**
 * @brief CLIP TER cross sections to a LandXML document, through the scratch file "temp.$$$"
 *        (removed afterwards).
 * @param entrada CLIP TER cross-section file.
 * @param salida LandXML document to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_traclip2landxml(const char* entrada, const char* salida);

/**
 * @brief ISTRAM/ISPOL cross sections to a LandXML document, through the scratch file "temp.$$$"
 *        (removed afterwards).
 * @param entrada ISTRAM/ISPOL cross-section file.
 * @param salida LandXML document to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_traistram2landxml(const char* entrada, const char* salida);

/**
 * @brief MXROAD cross sections to a LandXML document, through the scratch file "temp.$$$"
 *        (removed afterwards).
 * @param entrada MXROAD cross-section file.
 * @param salida LandXML document to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_tramxroad2landxml(const char* entrada, const char* salida);

/**
 * @brief HTRAZADO cross sections to a LandXML document, through the scratch file "temp.$$$"
 *        (removed afterwards). The transposed letters of "lamdxml" are part of the interface:
 *        the host binds by this exact name.
 * @param entrada HTRAZADO cross-section file.
 * @param salida LandXML document to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_trahtrazado2lamdxml(const char* entrada, const char* salida);

/* ---- Alignments -------------------------------------------------------- */

/**
 * @brief RUXO alignment to the NEVO alignment file: the element form when the first line of
 *        pathAp/quelvar.ini gives, behind its "=", a number at least the RUXO file's line
 *        count; the intersection-point form otherwise.
 * @param entrada RUXO alignment file.
 * @param salida NEVO alignment file to write.
 * @param pathAp the host's folder, whose quelvar.ini chooses the NEVO alignment form.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aruxo2nevo(const char* entrada, const char* salida,
                                              const char* pathAp);

/**
 * @brief RUXO alignment to the NEVO alignment file in the intersection-point form.
 * @param entrada RUXO alignment file.
 * @param salida NEVO alignment file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aruxo2nevoWCE(const char* entrada, const char* salida);

/**
 * @brief ISTRAM alignment to the NEVO alignment file (form chosen as in MyDll_aruxo2nevo),
 *        through the RUXO alignment file in the scratch file "temp.$$$", removed afterwards.
 * @param entrada ISTRAM alignment file.
 * @param salida NEVO alignment file to write.
 * @param pathAp the host's folder, whose quelvar.ini chooses the NEVO alignment form.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aistram2nevo(const char* entrada, const char* salida,
                                                const char* pathAp);

/**
 * @brief MXROAD alignment to NEVO: not provided in this version. Reads and writes nothing.
 * @param entrada path of the input file.
 * @param salida path of the output file, created or overwritten.
 * @param pathAp the host's folder, whose quelvar.ini chooses the NEVO alignment form.
 * @return 1 always.
 * @par Files written
 * None.
 */
QUELCNV_API int QUELCNV_CALL MyDll_amxroad2nevo(const char* entrada, const char* salida,
                                                const char* pathAp);

/**
 * @brief HTRAZADO alignment to the NEVO alignment file (form chosen as in MyDll_aruxo2nevo),
 *        through the RUXO alignment file in the scratch file "temp.$$$", removed afterwards. In
 *        this version the HTRAZADO alignment is read but not converted: no NEVO file is
 *        written.
 * @param entrada HTRAZADO alignment file.
 * @param salida NEVO alignment file to write.
 * @param pathAp the host's folder, whose quelvar.ini chooses the NEVO alignment form.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_ahtrazado2nevo(const char* entrada, const char* salida,
                                                  const char* pathAp);

/**
 * @brief CLIP PLT alignment to the NEVO alignment file (form chosen as in MyDll_aruxo2nevo),
 *        through the RUXO alignment file in the scratch file "temp.$$$", removed afterwards.
 * @param entrada CLIP PLT alignment file.
 * @param salida NEVO alignment file to write.
 * @param pathAp the host's folder, whose quelvar.ini chooses the NEVO alignment form.
 * @return 0 when entrada cannot be imported, else 1 (a failure after the import is told by the
 *         missing output file).
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2nevo(const char* entrada, const char* salida,
                                                 const char* pathAp);

/**
 * @brief ISTRAM listing (its straights) alignment to the NEVO alignment file (form chosen as in
 *        MyDll_aruxo2nevo), through the RUXO alignment file in the scratch file "temp.$$$",
 *        left for the next conversion to overwrite.
 * @param entrada ISTRAM listing (its straights) alignment file.
 * @param salida NEVO alignment file to write.
 * @param pathAp the host's folder, whose quelvar.ini chooses the NEVO alignment form.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$".
 */
QUELCNV_API int QUELCNV_CALL MyDll_aistramList2nevo(const char* entrada, const char* salida,
                                                    const char* pathAp);

/**
 * @brief ISPOL alignment to the NEVO alignment file (form chosen as in MyDll_aruxo2nevo),
 *        through the RUXO alignment file in the scratch file "temp.$$$", left for the next
 *        conversion to overwrite.
 * @param entrada ISPOL alignment file.
 * @param salida NEVO alignment file to write.
 * @param pathAp the host's folder, whose quelvar.ini chooses the NEVO alignment form.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$".
 */
QUELCNV_API int QUELCNV_CALL MyDll_aispol2nevo(const char* entrada, const char* salida,
                                               const char* pathAp);

/**
 * @brief CLIP PLT alignment to a RUXO alignment file.
 * @param entrada CLIP PLT alignment file.
 * @param salida RUXO alignment file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2ruxo(const char* entrada, const char* salida);

/**
 * @brief Lists the alignments of a LandXML document, one name a line, for the host to choose
 *        from (line n is the alignment selec n chooses).
 * @param entrada LandXML document.
 * @return 1, or 0 when the selection list cannot be written.
 * @par Files written
 * The selection list "$$$$.EJE" in the scratch folder.
 */
QUELCNV_API int QUELCNV_CALL MyDll_seleccionaEjeLandXML(const char* entrada);

/**
 * @brief One alignment of a LandXML document to the NEVO alignment file (form chosen as in
 *        MyDll_aruxo2nevo), through the RUXO alignment file "temp.$$$" (in the current folder
 *        on Windows, as the host has always had it; in the scratch folder elsewhere), removed
 *        afterwards.
 * @param selec zero-based index of the alignment, in the order of the selection list.
 * @param entrada LandXML document.
 * @param salida NEVO alignment file to write.
 * @param pathAp the host's folder, whose quelvar.ini chooses the NEVO alignment form.
 * @return 0 when selec is negative, no XML reader can be created or the alignment is rejected
 *         (a clothoid that starts at a finite radius at the start or after a line; the RUXO
 *         data is still written), else 1.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_alandxml2nevo(int selec, const char* entrada, const char* salida,
                                                 const char* pathAp);

/**
 * @brief One alignment of a LandXML document to a RUXO alignment file.
 * @param selec zero-based index of the alignment, in the order of the selection list.
 * @param entrada LandXML document.
 * @param salida RUXO alignment file to write.
 * @param pathAp not used; kept for the host.
 * @return 0 when selec is negative, no XML reader can be created or the alignment is rejected
 *         (a clothoid that starts at a finite radius at the start or after a line; the RUXO
 *         data is still written), else 1.
 * @par Files written
 * Salida (empty when selec is past the last alignment).
 */
QUELCNV_API int QUELCNV_CALL MyDll_alandxml2nevoWCE(int selec, const char* entrada,
                                                    const char* salida, const char* pathAp);

/**
 * @brief RUXO alignment to a LandXML document.
 * @param entrada RUXO alignment file.
 * @param salida LandXML document to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aVELM2LandXML(const char* entrada, const char* salida);

/**
 * @brief ISTRAM alignment to a LandXML document, through the RUXO alignment file in the scratch
 *        file "temp.$$$".
 * @param entrada ISTRAM alignment file.
 * @param salida LandXML document to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aistram2LandXML(const char* entrada, const char* salida);

/**
 * @brief HTRAZADO alignment to a LandXML document, through the RUXO alignment file in the
 *        scratch file "temp.$$$".
 * @param entrada HTRAZADO alignment file.
 * @param salida LandXML document to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_ahtrazado2LandXML(const char* entrada, const char* salida);

/**
 * @brief CLIP PLT alignment to a LandXML document, through the RUXO alignment file in the
 *        scratch file "temp.$$$".
 * @param entrada CLIP PLT alignment file.
 * @param salida LandXML document to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2LandXML(const char* entrada, const char* salida);

/**
 * @brief ISTRAM listing alignment to a LandXML document, through the RUXO alignment file in the
 *        scratch file "temp.$$$".
 * @param entrada ISTRAM listing alignment file.
 * @param salida LandXML document to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aistramList2LandXML(const char* entrada, const char* salida);

/**
 * @brief ISPOL alignment to a LandXML document, through the RUXO alignment file in the scratch
 *        file "temp.$$$".
 * @param entrada ISPOL alignment file.
 * @param salida LandXML document to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida; "temp.$$$" while converting.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aispol2LandXML(const char* entrada, const char* salida);

/**
 * @brief ISTRAM alignment to a RUXO alignment file.
 * @param entrada ISTRAM alignment file.
 * @param salida RUXO alignment file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_aistram2ruxo(const char* entrada, const char* salida);

/* ---- Vertical profiles and superelevation ------------------------------ */

/**
 * @brief ISTRAM profile listing to the NEVO profile file (station, elevation, curve length).
 * @param entrada ISTRAM profile listing file.
 * @param salida NEVO profile file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_ristram2nevo(const char* entrada, const char* salida);

/**
 * @brief VELM profile (five columns) or ISPOL vertex listing (first character "#") to the NEVO
 *        profile file (station, elevation, curve length).
 * @param entrada VELM profile file.
 * @param salida NEVO profile file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_rvelm2nevo(const char* entrada, const char* salida);

/**
 * @brief ISPOL profile to the NEVO profile file (station, elevation, curve length).
 * @param entrada ISPOL profile file.
 * @param salida NEVO profile file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_rispol2nevo(const char* entrada, const char* salida);

/**
 * @brief Lists the profiles of a LandXML document, one "alignment: profile" a line, for the
 *        host to choose from.
 * @param entrada LandXML document.
 * @return nothing.
 * @par Files written
 * The selection list "$$$$.EJE" in the scratch folder.
 */
QUELCNV_API void QUELCNV_CALL MyDll_seleccionaRasanteLandXML(const char* entrada);

/**
 * @brief One profile of a LandXML document to a vertex file: station, elevation and curve
 *        length a line.
 * @param nombreRas the profile as the selection list names it, "alignment: profile" (any case).
 * @param entrada LandXML document.
 * @param salida vertex file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida (empty when the name matches nothing).
 */
QUELCNV_API int QUELCNV_CALL MyDll_rlandxml2nevo(const char* nombreRas, const char* entrada,
                                                 const char* salida);

/**
 * @brief One profile of a LandXML document to the five-column vertex file (station, elevation,
 *        kv, tangent, external) of Windows CE collectors.
 * @param nombreRas the profile as the selection list names it, "alignment: profile" (any case).
 * @param entrada LandXML document.
 * @param salida vertex file to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida (empty when the name matches nothing).
 */
QUELCNV_API int QUELCNV_CALL MyDll_rlandxml2nevoWCE(const char* nombreRas, const char* entrada,
                                                    const char* salida);

/**
 * @brief VELM profile to a LandXML document.
 * @param entrada VELM profile file.
 * @param salida LandXML document to write.
 * @return always 1, as the host expects: a failed conversion is told by the missing output
 *         file.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_rvelm2landxml(const char* entrada, const char* salida);

/**
 * @brief ISTRAM profile listing to a LandXML document.
 * @param entrada ISTRAM profile listing file.
 * @param salida LandXML document to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_ristram2landxml(const char* entrada, const char* salida);

/**
 * @brief ISPOL profile to a LandXML document.
 * @param entrada ISPOL profile file.
 * @param salida LandXML document to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_rispol2landxml(const char* entrada, const char* salida);

/**
 * @brief RUXO profile (station, elevation, curve length) to the five-column tab vertex file.
 * @param entrada RUXO profile file.
 * @param salida vertex file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_rasruxo2nevo(const char* entrada, const char* salida);

/**
 * @brief CartoMAP profile to the five-column VELM profile file.
 * @param entrada CartoMAP profile.
 * @param salida VELM profile file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_rascartomap2ruxo(const char* entrada, const char* salida);

/**
 * @brief ISPOL superelevation table to the superelevation file (station, left, right).
 * @param entrada ISPOL superelevation file.
 * @param salida superelevation file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_peralteispol2nevo(const char* entrada, const char* salida);

/**
 * @brief CLIP superelevation table to the superelevation file (station, left, right).
 * @param entrada CLIP superelevation file.
 * @param salida superelevation file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_peralteClip2nevo(const char* entrada, const char* salida);

/* ---- Field data -------------------------------------------------------- */

/**
 * @brief KL500 level readings to an IGN levelling book (code page 850) with its header texts.
 * @param entrada KL500 readings file.
 * @param salida levelling book to write.
 * @param empresa company, written into the book's header.
 * @param operador observer, written into the book's header.
 * @param mira1 first staff.
 * @param mira2 second staff.
 * @param nserie level's serial number.
 * @return 1 converted; 21 when entrada cannot be read; 0 when it holds fewer than three records
 *         or the book cannot be written.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_anivel2ing(const char* entrada, const char* salida,
                                              const char* empresa, const char* operador,
                                              const char* mira1, const char* mira2,
                                              const char* nserie);

/**
 * @brief LEA survey to a Medrix observation file and its code file. A code file that cannot be
 *        written is left out; the result stays 1.
 * @param entrada LEA survey file.
 * @param salida Medrix observation file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida, and beside it the code file (salida with the extension "cod").
 */
QUELCNV_API int QUELCNV_CALL MyDll_topoLea2Medrix(const char* entrada, const char* salida);

/**
 * @brief NEVO observation list to a Medrix observation file.
 * @param entrada NEVO observation list.
 * @param salida Medrix observation file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_lectnevo2medrix(const char* entrada, const char* salida);

/**
 * @brief Robotic total-station readings to a setting-out report: not provided in this version.
 *        Reads and writes nothing.
 * @param lecturas path of the robotic total-station readings file.
 * @param puntos path of the point list.
 * @param salida path of the output file, created or overwritten.
 * @param trabajo job name.
 * @param operario operator.
 * @param descripcion description.
 * @param temperatura temperature.
 * @param fecha date.
 * @param hora time.
 * @return 0 always.
 * @par Files written
 * None.
 */
QUELCNV_API int QUELCNV_CALL MyDll_procesaRobotizada(const char* lecturas, const char* puntos,
                                                     const char* salida, const char* trabajo,
                                                     const char* operario, const char* descripcion,
                                                     const char* temperatura, const char* fecha,
                                                     const char* hora);

/**
 * @brief Job name, date and time of a robotic readings file, one a line.
 * @param lecturas path of the robotic total-station readings file.
 * @param salida header file to write.
 * @return 1 converted; 0 when nothing was converted (entrada cannot be read or holds no data,
 *         or salida cannot be written), and then no output file is left.
 * @par Files written
 * Salida.
 */
QUELCNV_API int QUELCNV_CALL MyDll_procesaCabecera(const char* lecturas, const char* salida);

/**
 * @brief CLIP cross-section report to two files: not provided in this version. Reads and writes
 *        nothing.
 * @param lecturas path of the robotic total-station readings file.
 * @param salida1 path of the first output.
 * @param salida2 path of the second output.
 * @return 0 always.
 * @par Files written
 * None.
 */
QUELCNV_API int QUELCNV_CALL MyDll_clipST2ruxo(const char* lecturas, const char* salida1,
                                               const char* salida2);

#ifdef __cplusplus
}
#endif

#endif /* QUELCNV_H */
