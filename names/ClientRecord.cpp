#include "ClientRecord.h"

#include <fstream>

#include "Cp1253.h"
#include "RecordFile.h"
#include "RuntimeFault.h"
#include "Scramble.h"

std::string StoredField(const std::string& utf8, std::size_t width) {
  std::string bytes = Utf8ToCp1253(Trim(utf8));
  if (bytes.size() > width) bytes.resize(width);
  return ScrambleText(bytes) + std::string(width - bytes.size(), ' ');
}

std::string FieldText(const std::string& stored) {
  std::string bytes = stored;
  while (!bytes.empty() && bytes.back() == ' ') bytes.pop_back();
  return Trim(Cp1253ToUtf8(UnscrambleText(bytes)));
}

ClientList ReadClients(Workspace& ws) {
  ClientList list;
  const auto records = ReadClientRecords(ws);
  for (const ClientRecord& r : records) list.Names.push_back(FieldText(r.ClientName));
  if (!records.empty()) list.Password = FieldText(records.front().ClientPass);
  return list;
}

std::vector<ClientRecord> ReadClientRecords(Workspace& ws) {
  return ws.Records<ClientRecord>(kClientsFile, RecordFileMode::ReadOnly).ReadAll();
}

namespace {

std::string EncodeRecords(const std::vector<ClientRecord>& records) {
  std::string bytes(records.size() * ClientRecordLayout.RecordLength, '\0');
  for (std::size_t i = 0; i < records.size(); ++i)
    EncodeRecord(records[i], reinterpret_cast<unsigned char*>(bytes.data()) +
                                 i * ClientRecordLayout.RecordLength);
  return bytes;
}

void RewriteClientsFile(Workspace& ws, const std::string& bytes) {
  ws.Rewrite(kClientsFile, [&](const std::filesystem::path& second) {
    std::ofstream out(second, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw RuntimeFault(FaultCode::DiskFull, kClientsFile);
  });
}

}  // namespace

std::string EncodeClients(const ClientList& list) {
  std::vector<ClientRecord> records(list.Names.size());
  const std::string password = StoredField(list.Password, kClientPassWidth);
  for (std::size_t i = 0; i < list.Names.size(); ++i) {
    records[i].ClientNo = static_cast<int16_t>(i + 1);
    records[i].ClientName = StoredField(list.Names[i], kClientNameWidth);
    records[i].ClientPass = password;
  }
  return EncodeRecords(records);
}

void WriteClients(Workspace& ws, const ClientList& list) {
  RewriteClientsFile(ws, EncodeClients(list));
}

void WriteClientRecords(Workspace& ws, const std::vector<ClientRecord>& records) {
  RewriteClientsFile(ws, EncodeRecords(records));
}
