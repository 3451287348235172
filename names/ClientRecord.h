#pragma once
// "CLIENTS.zfo": the list of engineer names, one 100-byte record a name, in the program folder.
// Name and password are stored scrambled; the password is the same in every record and only
// record 1's is read.
#include <cstdint>
#include <string>
#include <vector>

#include "RecordLayout.h"
#include "Workspace.h"

struct ClientRecord {
  int16_t ClientNo = 0;    // running number
  std::string ClientName;  // 78 bytes: the scrambled name, blank-padded
  std::string ClientPass;  // 20 bytes: the scrambled password, blank-padded; empty: no lock
};

inline constexpr auto ClientRecordLayout = MakeLayout<ClientRecord, 100>(
    I16(&ClientRecord::ClientNo, 0), Raw(&ClientRecord::ClientName, 2, 78),
    Raw(&ClientRecord::ClientPass, 80, 20));
static_assert(ClientRecordLayout.Tiles(), "ClientRecord fields must tile 100 bytes");

template <>
struct RecordLayoutOf<ClientRecord> {
  static constexpr const auto& Value = ClientRecordLayout;
};

inline constexpr const char* kClientsFile = "CLIENTS.zfo";
inline constexpr std::size_t kClientNameWidth = 78;
inline constexpr std::size_t kClientPassWidth = 20;

// A text as its field stores it: trimmed, in code page 1253, cut at the width, scrambled, and
// then padded with blanks that are not scrambled.
std::string StoredField(const std::string& utf8, std::size_t width);
// A stored field read back: unscrambled and trimmed, as UTF-8. The padding blanks were never
// scrambled, so they are taken off before the field is unscrambled.
std::string FieldText(const std::string& stored);

// The names and the password as the screens hold them (UTF-8, trimmed).
struct ClientList {
  std::vector<std::string> Names;
  std::string Password;
};

// The bytes of a whole list: numbered from 1, every record with the password.
std::string EncodeClients(const ClientList& list);
// Reads the list; a missing file reads as no names.
ClientList ReadClients(Workspace& ws);
// The records as they stand on disk, for the commands that change one record, or one field of
// every record, and leave the others byte for byte.
std::vector<ClientRecord> ReadClientRecords(Workspace& ws);
void WriteClientRecords(Workspace& ws, const std::vector<ClientRecord>& records);

// Writes the whole list anew, numbered from 1, every record with the password, through a
// second file and a rename: a crash leaves the old list or the new one, never half of one.
void WriteClients(Workspace& ws, const ClientList& list);
