// The list of engineer names on disk: scrambled fields with unscrambled padding, the password
// in every record, the whole list rewritten through a second file, and files that are not what
// the program wrote.
#include <gtest/gtest.h>

#include "ClientRecord.h"
#include "Cp1253.h"
#include "KillAtRewriteStep.h"
#include "ProgramFolder.h"
#include "RecordFile.h"
#include "Scramble.h"
#include "TempFolder.h"

namespace {

class ClientListTest : public ::testing::Test, public ProgramFolder {};

// A name too long for its field is cut at the width.
TEST_F(ClientListTest, AFieldIsTheScrambledTrimmedTextThenPlainBlanks) {
  const std::string stored = StoredField("  Κ. Νικολάου  ", 78);
  ASSERT_EQ(stored.size(), 78u);
  const std::string name = Utf8ToCp1253("Κ. Νικολάου");
  EXPECT_EQ(stored.substr(0, name.size()), ScrambleText(name));
  EXPECT_EQ(stored.substr(name.size()), std::string(78 - name.size(), ' '));
  EXPECT_EQ(FieldText(stored), "Κ. Νικολάου");
  EXPECT_EQ(StoredField("", 20), std::string(20, ' '));
  EXPECT_EQ(FieldText(std::string(20, ' ')), "");
  EXPECT_EQ(FieldText(StoredField(std::string(200, 'N'), 78)), std::string(78, 'N'));
}

TEST_F(ClientListTest, TheListGoesToDiskAndComesBack) {
  ClientList list;
  list.Names = {"Γ. Παπαδόπουλος", "Ε. Ιωάννου", "Δ. Κωνσταντίνου, Πολ. Μηχανικός"};
  list.Password = "μυστικό";
  WriteClients(ws, list);
  EXPECT_EQ(std::filesystem::file_size(folder / kClientsFile), 300u);
  const auto records = RecordFile<ClientRecord>(folder / kClientsFile).ReadAll();
  for (std::size_t i = 0; i < records.size(); ++i) {
    EXPECT_EQ(records[i].ClientNo, static_cast<int16_t>(i + 1));
    EXPECT_EQ(records[i].ClientPass, StoredField("μυστικό", 20));  // in every record
  }
  const ClientList back = ReadClients(ws);
  EXPECT_EQ(back.Names, list.Names);
  EXPECT_EQ(back.Password, "μυστικό");
  EXPECT_FALSE(std::filesystem::exists(folder / "CLIENTS.zfo.@@@"));
}

TEST_F(ClientListTest, FilesThatAreNotWhatTheProgramWroteReadWithoutHarm) {
  EXPECT_TRUE(ReadClients(ws).Names.empty());  // no file
  for (const std::size_t size : {0u, 99u, 150u}) {
    WriteAllBytes(folder / kClientsFile, std::string(size, '\x9C'));
    const ClientList list = ReadClients(ws);
    // 99 bytes are one record cut short, 150 are two (1.5 rounds to even).
    EXPECT_EQ(list.Names.size(), size == 0 ? 0u : size == 99 ? 1u : 2u) << size;
  }
  ClientList good;
  good.Names = {"Α. Βασιλείου"};
  WriteClients(ws, good);
  std::string bytes = ReadAllBytes(folder / kClientsFile);
  for (std::size_t i = 80; i < 100; ++i) bytes[i] = static_cast<char>(i * 37);  // garbage
  WriteAllBytes(folder / kClientsFile, bytes);
  const ClientList read = ReadClients(ws);
  EXPECT_EQ(read.Names, good.Names);
  EXPECT_FALSE(read.Password.empty());  // a garbage password locks, it does not unlock
}

// Deleting a name or changing the password rewrites the list: killed at any step, the list on
// disk is the old one or the new one, whole, and one password stands in every record.
TEST_F(ClientListTest, ARewriteKilledAtAnyStepLeavesTheOldListOrTheNew) {
  ClientList before;
  before.Names = {"Α", "Β", "Γ"};
  before.Password = "παλιό";
  ClientList after = before;
  after.Names.pop_back();
  after.Password = "νέο";
  const std::string oldBytes = EncodeClients(before), newBytes = EncodeClients(after);
  for (int stop = 1; stop <= 4; ++stop) {
    WriteAllBytes(folder / kClientsFile, oldBytes);
    KillAtRewriteStep(stop, [&] { WriteClients(ws, after); });
    const std::string bytes = ReadAllBytes(folder / kClientsFile);
    EXPECT_TRUE(bytes == oldBytes || bytes == newBytes) << "stop " << stop;
    const auto records = RecordFile<ClientRecord>(folder / kClientsFile).ReadAll();
    for (const ClientRecord& r : records) EXPECT_EQ(r.ClientPass, records.front().ClientPass);
  }
}

}  // namespace
