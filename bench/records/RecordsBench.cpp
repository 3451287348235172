// The cost of the record layer against the floor the disk sets.
//   StudyThroughRecordFile: a 200-sheet study written through RecordFile (200 SheetRecords,
//     1600 LoopRecords, Greek texts) and every record read back.
//   IoFloor*: the same bytes, already encoded, written and read back with plain write()/read(),
//     record by record (the same number of system calls) and in one piece.
//   CodecOnly: encoding and decoding of the same records without any file.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "RecordFile.h"
#include "SheetRecords.h"
#include "TempFolder.h"

namespace fs = std::filesystem;

namespace {

constexpr int kSheets = 200;
constexpr int kLoops = kSheets * kRowsPerSheet;
constexpr std::size_t kSheetBytes = kSheets * 196;
constexpr std::size_t kLoopBytes = kLoops * 298;

SheetRecord SheetOf(int n) {
  SheetRecord s;
  s.SheetNo = static_cast<int16_t>(n);
  s.Thema = "Μελέτη θέρμανσης πολυκατοικίας οδού Ερμού 12, Αθήνα";
  s.Ownership = "Οικογένεια Παπαδοπούλου";
  s.LoopNo = "Βρόχος " + std::to_string(n);
  s.TempDrop = 20.0f;
  s.PipeName = "Φ16x1";
  s.Flow = 123.4f + n;
  s.Velocity = 0.25f;
  s.SpecificResistance = 12.5f;
  s.LoopLength = 35.0f;
  s.OrigTemp = 80.0f;
  s.OtherRes = 2.0f;
  s.ResultsValid = -1.0f;
  s.SomaCategoryNo = 1.0f;
  s.TotalLoad = 4500.0f;
  s.RealOutput = 4620.0f;
  s.WaterContent = 9.5f;
  return s;
}

LoopRecord LoopOf(int sheet, int row) {
  LoopRecord r;
  r.SheetNo = static_cast<int16_t>(sheet);
  r.Thema = "Μελέτη θέρμανσης πολυκατοικίας οδού Ερμού 12, Αθήνα";
  r.Ownership = "Οικογένεια Παπαδοπούλου";
  r.LoopNo = "Βρόχος " + std::to_string(sheet);
  r.PipeName = "Φ16x1";
  r.RowNo = static_cast<int16_t>(row);
  r.SomaNo = "Σ" + std::to_string(row);
  r.RoomTemp = 20.0f;
  r.Load = 600.0f;
  r.InletTemp = 80.0f - row;
  r.OutletTemp = 79.0f - row;
  r.MeanTemp = 79.5f - row;
  r.CorrectionFactor = 1.02f;
  r.EquivalentLoad = 612.0f;
  r.SomaType = "ΠΑΝΕΛ ΤΥΠΟΣ 22";
  r.SomaText = "22/600/1000";
  r.SomaOutput = 640.0f;
  r.SomaArea = 1.2f;
  r.SomaLength = 1.0f;
  r.SomaWater = 5.8f;
  return r;
}

struct Study {
  std::vector<SheetRecord> Sheets;
  std::vector<LoopRecord> Loops;
};

const Study& TheStudy() {
  static const Study study = [] {
    Study s;
    for (int n = 1; n <= kSheets; ++n) {
      s.Sheets.push_back(SheetOf(n));
      for (int row = 1; row <= kRowsPerSheet; ++row) s.Loops.push_back(LoopOf(n, row));
    }
    return s;
  }();
  return study;
}

template <class T>
std::string Encoded(const std::vector<T>& records) {
  constexpr std::size_t length = RecordLengthOf<T>();
  std::string bytes(records.size() * length, '\0');
  for (std::size_t i = 0; i < records.size(); ++i) {
    EncodeRecord(records[i], reinterpret_cast<unsigned char*>(bytes.data() + i * length));
  }
  return bytes;
}

void SetBytes(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(2 * (kSheetBytes + kLoopBytes)));
}

template <class T>
void WriteAndReadBack(const fs::path& path, const std::vector<T>& records) {
  fs::remove(path);
  RecordFile<T> file(path);
  for (std::size_t i = 0; i < records.size(); ++i) {
    file.Write(static_cast<int32_t>(i + 1), records[i]);
  }
  const int32_t count = file.Count();
  for (int32_t n = 1; n <= count; ++n) {
    T record = file.Read(n);
    benchmark::DoNotOptimize(record);
  }
}

void StudyThroughRecordFile(benchmark::State& state) {
  TempFolder dir;
  const Study& study = TheStudy();
  for (auto _ : state) {
    WriteAndReadBack(dir / "SHEETS.TMP", study.Sheets);
    WriteAndReadBack(dir / "LOOPS.TMP", study.Loops);
  }
  SetBytes(state);
}
BENCHMARK(StudyThroughRecordFile)->Unit(benchmark::kMillisecond);

int OpenFresh(const fs::path& path) {
  const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd < 0) throw std::runtime_error("cannot open " + path.string());
  return fd;
}

// write() then read() of `bytes` in pieces of `piece` bytes.
void PlainWriteAndRead(const fs::path& path, const std::string& bytes, std::size_t piece,
                       std::string& buffer) {
  fs::remove(path);
  const int fd = OpenFresh(path);
  for (std::size_t at = 0; at < bytes.size(); at += piece) {
    if (::write(fd, bytes.data() + at, piece) != static_cast<ssize_t>(piece)) {
      throw std::runtime_error("write failed");
    }
  }
  ::lseek(fd, 0, SEEK_SET);
  for (std::size_t at = 0; at < bytes.size(); at += piece) {
    if (::read(fd, buffer.data() + at, piece) != static_cast<ssize_t>(piece)) {
      throw std::runtime_error("read failed");
    }
  }
  benchmark::DoNotOptimize(buffer.data());
  ::close(fd);
}

void IoFloor(benchmark::State& state, bool perRecord) {
  TempFolder dir;
  const std::string sheets = Encoded(TheStudy().Sheets);
  const std::string loops = Encoded(TheStudy().Loops);
  std::string sheetBuffer(sheets.size(), '\0');
  std::string loopBuffer(loops.size(), '\0');
  for (auto _ : state) {
    PlainWriteAndRead(dir / "SHEETS.TMP", sheets, perRecord ? 196 : sheets.size(), sheetBuffer);
    PlainWriteAndRead(dir / "LOOPS.TMP", loops, perRecord ? 298 : loops.size(), loopBuffer);
  }
  SetBytes(state);
}

void IoFloorPerRecord(benchmark::State& state) {
  IoFloor(state, true);
}
BENCHMARK(IoFloorPerRecord)->Unit(benchmark::kMillisecond);

void IoFloorOnePiece(benchmark::State& state) {
  IoFloor(state, false);
}
BENCHMARK(IoFloorOnePiece)->Unit(benchmark::kMillisecond);

void CodecOnly(benchmark::State& state) {
  const Study& study = TheStudy();
  unsigned char sheetBytes[196];
  unsigned char loopBytes[298];
  for (auto _ : state) {
    for (const auto& s : study.Sheets) {
      EncodeRecord(s, sheetBytes);
      SheetRecord back;
      DecodeRecord(sheetBytes, back);
      benchmark::DoNotOptimize(back);
    }
    for (const auto& r : study.Loops) {
      EncodeRecord(r, loopBytes);
      LoopRecord back;
      DecodeRecord(loopBytes, back);
      benchmark::DoNotOptimize(back);
    }
  }
  SetBytes(state);
}
BENCHMARK(CodecOnly)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
