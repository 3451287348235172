#include "WorkingFiles.h"

#include <algorithm>

#include "RuntimeFault.h"
#include "SheetRecords.h"
#include "SomaRecord.h"

const std::vector<std::string>& NetworkFileNames() {
  static const std::vector<std::string> names{"EDGE_DOUBLEFLOORS.TMP",
                                              "INTER_DOUBLEFLOORS.TMP",
                                              "EDGE_FINALFLOORS.TMP",
                                              "INTER_FINALFLOORS.TMP",
                                              "EDGE_SHEETSNODES.TMP",
                                              "INTER_SHEETSNODES.TMP",
                                              "RECNOFFF.TXT",
                                              "LEVEL_SHEETS.TXT",
                                              "LEVELSHEETS_TECH.TXT",
                                              "TMP.TMP",
                                              "DATARES.TMP",
                                              "SOMATA.@@@",
                                              "SOMATA.TMP",
                                              "STATIST.TMP",
                                              "SectionsFlows.txt",
                                              "LIQUID.TMP",
                                              "EDGE.TMP"};
  return names;
}

const std::vector<std::string>& WorkingFileNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all{SheetsFile.Name,        LoopsFile.Name,   kFloorsFile,
                                 SomataWorkingCopy.Name, StudiesFile.Name, kDummyFile};
    const std::vector<std::string>& network = NetworkFileNames();
    all.insert(all.end(), network.begin(), network.end());
    return all;
  }();
  return names;
}

void KillRavoTemporaries(Workspace& ws) {
  for (const std::string& name : WorkingFileNames()) {
    if (ws.FileExists(name)) ws.Delete(name, true);
  }
}

std::string ExtensionPattern(std::string_view extension) {
  std::string pattern(extension);
  if (pattern.empty() || pattern[0] != '*') pattern.insert(0, "*");
  // Kept on purpose: a bare "rvo" becomes "*rvo" above and then "*.vo" here, as the old
  // routine did; its callers always pass ".rvo" or ".jpg".
  if (pattern.size() < 2 || pattern[1] != '.')
    pattern = "*." + pattern.substr(std::min<std::size_t>(2, pattern.size()));
  return pattern;
}

namespace {

// The text less its last `count` characters (UTF-8 sequences count as one).
std::string_view DropLastCharacters(std::string_view text, int count) {
  std::size_t end = text.size();
  for (int k = 0; k < count && end > 0; ++k) {
    --end;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  }
  return text.substr(0, end);
}

std::string_view LastCharacters(std::string_view text, int count) {
  return text.substr(DropLastCharacters(text, count).size());
}

}  // namespace

void RenameFiles(Workspace& ws, std::string_view fromExtension, std::string_view toExtension) {
  const std::string fromPattern = ExtensionPattern(fromExtension);
  const std::string toPattern = ExtensionPattern(toExtension);
  const std::string_view newEnding = LastCharacters(toPattern, 4);
  const std::string folder = std::string(Workspace::kPicturesFolder) + "/";
  try {
    for (const std::string& name : ws.ListFiles(Workspace::kPicturesFolder, fromPattern)) {
      const std::string newName = std::string(DropLastCharacters(name, 4)) + std::string(newEnding);
      ws.Rename(folder + name, folder + newName);
    }
  } catch (const RuntimeFault&) {
    // Kept on purpose: a picture that cannot be renamed (its new name taken) stops the
    // routine without a word; the pictures are a help, not part of the study.
  }
}
