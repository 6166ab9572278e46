/*
 * Quillmark: torsional vibration of marine propulsion and auxiliary shaft lines.
 *
 * The public C interface of libquillmark.so. Every argument is passed by reference, as
 * a host written for the original calling convention expects. Strings travel as arrays
 * of 32-bit character codes (the low 8 bits of each element are the character) together
 * with their length. Logical flags are 32-bit integers, -1 for true and 0 for false.
 *
 * Calls must not overlap: the library keeps run-wide state (result directory, file unit
 * counter, scratch curves) without locks. One call after the other is fine, any number
 * of times.
 */
#ifndef QUILLMARK_QUILLMARK_H
#define QUILLMARK_QUILLMARK_H

#include <stdint.h>

#if defined(QUILLMARK_BUILDING)
#define QUILLMARK_API __attribute__((visibility("default")))
#else
#define QUILLMARK_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/*
 * QUILLMARKSOLVER: one calculation of the model in an input file.
 *
 *  INPUTFILEDIRARRAY   [in]  directory of the input file, one character code per element
 *  INPUTFILEDIRLENGTH  [in]  number of elements of INPUTFILEDIRARRAY (at most 1000)
 *  INPUTFILENAMEARRAY  [in]  name of the input file, one character code per element
 *  INPUTFILENAMELENGTH [in]  number of elements of INPUTFILENAMEARRAY (at most 1000)
 *  RESULTFILEDIRARRAY  [in]  result directory: the log "Quillmark.log", "Genset.txt" and
 *                            every result file live there
 *  RESULTFILEDIRLENGTH [in]  number of elements of RESULTFILEDIRARRAY (at most 1000)
 *  ISINPUTVALID        [out] 1 when reading and checking passed, 0 when they failed;
 *                            the findings are in the log
 *  CALCULATIONTYPE     [in]  0 read and check only; 1 free vibration; 2 forced vibration;
 *                            3 both with load case checks; any other value both,
 *                            without load case checks and coupling power preparation
 *
 * A directory that is blank, longer than 1000 characters, missing or not writable ends
 * the call with ISINPUTVALID 0 and a message on standard error, since no log can be
 * written there.
 */
QUILLMARK_API void QUILLMARKSOLVER(const int32_t* INPUTFILEDIRARRAY,
                                   const int32_t* INPUTFILEDIRLENGTH,
                                   const int32_t* INPUTFILENAMEARRAY,
                                   const int32_t* INPUTFILENAMELENGTH,
                                   const int32_t* RESULTFILEDIRARRAY,
                                   const int32_t* RESULTFILEDIRLENGTH,
                                   int32_t* ISINPUTVALID,
                                   const int32_t* CALCULATIONTYPE);

#ifdef __cplusplus
}
#endif

#endif /* QUILLMARK_QUILLMARK_H */
