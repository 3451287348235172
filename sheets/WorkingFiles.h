#pragma once
// The program folder's working files as the sheets know them: the plain files beside the
// record files of SheetRecords.h and SomaRecord.h, the files of a study on disk, and the
// table of every working file that the end of a study deletes.
#include <string>
#include <string_view>
#include <vector>

#include "Workspace.h"

// The levels of the study, written by the levels' screens; the sheets copy and delete it
// with the study.
inline constexpr const char* kFloorsFile = "RAVOFLOORS.TMP";
// A scratch file of the old program, deleted with the working files and nothing else.
inline constexpr const char* kDummyFile = "DUMMY.TMP";

// A study on disk: the sheets under the name the engineer gives, its loops and its levels in
// sister files that differ only in the extension (four characters, the dot included).
inline constexpr const char* kStudyExtension = ".sht";
inline constexpr const char* kLoopsExtension = ".lps";
inline constexpr const char* kFloorsExtension = ".rvf";

// The files of the levels' derived network and its results, in the order in which they are
// deleted when the sheets under them change (a sheet deleted, a study revived). The levels and
// the network own these files; until they declare them, they stand here.
const std::vector<std::string>& NetworkFileNames();
// The working files, in the order in which KillRavoTemporaries deletes them: the study's own
// files, then the derived network's.
const std::vector<std::string>& WorkingFileNames();
// Deletes every working file that exists, in the order of the table.
void KillRavoTemporaries(Workspace& ws);

// Renames the pictures of Workspace::kPicturesFolder from one extension to another (".rvo" <->
// ".jpg"), as the old program did: the extensions are normalised to "*.xxx", each matching file's
// name less its last four characters gets the last four characters of the new one; a failure ends
// the routine without a message.
void RenameFiles(Workspace& ws, std::string_view fromExtension, std::string_view toExtension);
// An extension as RenameFiles reads it: "*" put in front when missing, then the first two
// characters made "*." when the second is not "." (".rvo" -> "*.rvo", "*.rvo" stays).
std::string ExtensionPattern(std::string_view extension);
