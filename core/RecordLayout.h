#pragma once
// Fixed-length packed records, declared once as a table of fields. One codec reads and writes
// every record of the system:
//   numbers little-endian, f32/f64 IEEE; text fields code page 1253, padded with blanks on
//   write (cut at the width), trimmed of blanks on read; reserved fields kept byte for byte.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

enum class FieldKind : uint8_t { I16, I32, F32, F64, Text, Raw };

template <class T>
struct FieldDef {
  FieldKind Kind;
  std::size_t Offset;
  std::size_t Width;
  int16_t T::*I16Member = nullptr;
  int32_t T::*I32Member = nullptr;
  float T::*F32Member = nullptr;
  double T::*F64Member = nullptr;
  std::string T::*TextMember = nullptr;  // Text (UTF-8 in memory) and Raw (bytes as on disk)
};

template <class T>
constexpr FieldDef<T> I16(int16_t T::*m, std::size_t offset) {
  FieldDef<T> f{FieldKind::I16, offset, 2};
  f.I16Member = m;
  return f;
}
template <class T>
constexpr FieldDef<T> I32(int32_t T::*m, std::size_t offset) {
  FieldDef<T> f{FieldKind::I32, offset, 4};
  f.I32Member = m;
  return f;
}
template <class T>
constexpr FieldDef<T> F32(float T::*m, std::size_t offset) {
  FieldDef<T> f{FieldKind::F32, offset, 4};
  f.F32Member = m;
  return f;
}
template <class T>
constexpr FieldDef<T> F64(double T::*m, std::size_t offset) {
  FieldDef<T> f{FieldKind::F64, offset, 8};
  f.F64Member = m;
  return f;
}
// A fixed-width text field, code page 1253 on disk.
template <class T>
constexpr FieldDef<T> Text(std::string T::*m, std::size_t offset, std::size_t width) {
  FieldDef<T> f{FieldKind::Text, offset, width};
  f.TextMember = m;
  return f;
}
// Bytes that no routine interprets: read and written back as they are. A record that never
// held them (a new one) writes zeros, as a never-set field of the old run-time did.
template <class T>
constexpr FieldDef<T> Raw(std::string T::*m, std::size_t offset, std::size_t width) {
  FieldDef<T> f{FieldKind::Raw, offset, width};
  f.TextMember = m;
  return f;
}

template <class T, std::size_t Length, std::size_t N>
struct RecordLayout {
  static constexpr std::size_t RecordLength = Length;
  std::array<FieldDef<T>, N> Fields;

  // True when the fields, in offset order, follow each other without gap or overlap and
  // cover exactly Length bytes. Every layout proves it with a static_assert.
  constexpr bool Tiles() const {
    std::array<std::pair<std::size_t, std::size_t>, N> spans{};
    for (std::size_t i = 0; i < N; ++i) spans[i] = {Fields[i].Offset, Fields[i].Width};
    std::sort(spans.begin(), spans.end());
    std::size_t at = 0;
    for (const auto& [offset, width] : spans) {
      if (offset != at || width == 0) return false;
      at += width;
    }
    return at == Length;
  }
};

template <class T, std::size_t Length, class... F>
constexpr RecordLayout<T, Length, sizeof...(F)> MakeLayout(F... fields) {
  return RecordLayout<T, Length, sizeof...(F)>{{fields...}};
}

// Each record type names its layout by specialising this trait:
//   template <> struct RecordLayoutOf<SheetRecord> { static constexpr const auto& Value = ...; };
template <class T>
struct RecordLayoutOf;

template <class T>
constexpr std::size_t RecordLengthOf() {
  return std::remove_cvref_t<decltype(RecordLayoutOf<T>::Value)>::RecordLength;
}

// The codec. `bytes` holds exactly the record length.
namespace record_codec {
void PutI16(unsigned char* p, int16_t v);
void PutI32(unsigned char* p, int32_t v);
void PutF32(unsigned char* p, float v);
void PutF64(unsigned char* p, double v);
int16_t GetI16(const unsigned char* p);
int32_t GetI32(const unsigned char* p);
float GetF32(const unsigned char* p);
double GetF64(const unsigned char* p);
// UTF-8 to code page 1253, cut at width, padded with blanks.
void PutText(unsigned char* p, std::size_t width, const std::string& utf8);
// Code page 1253 to UTF-8, blanks trimmed on both sides (only blanks: a zero byte is kept,
// so a record that a write past the end left zero-filled can be recognised).
std::string GetText(const unsigned char* p, std::size_t width);
void PutRaw(unsigned char* p, std::size_t width, const std::string& raw);
std::string GetRaw(const unsigned char* p, std::size_t width);
}  // namespace record_codec

template <class T>
void EncodeRecord(const T& record, unsigned char* bytes) {
  using namespace record_codec;
  for (const auto& f : RecordLayoutOf<T>::Value.Fields) {
    unsigned char* p = bytes + f.Offset;
    switch (f.Kind) {
      case FieldKind::I16:
        PutI16(p, record.*(f.I16Member));
        break;
      case FieldKind::I32:
        PutI32(p, record.*(f.I32Member));
        break;
      case FieldKind::F32:
        PutF32(p, record.*(f.F32Member));
        break;
      case FieldKind::F64:
        PutF64(p, record.*(f.F64Member));
        break;
      case FieldKind::Text:
        PutText(p, f.Width, record.*(f.TextMember));
        break;
      case FieldKind::Raw:
        PutRaw(p, f.Width, record.*(f.TextMember));
        break;
    }
  }
}

// Decodes the numbers of a record, the texts that `wantText` accepts (by member), and the
// reserved bytes when `withRaw`.
template <class T, class WantText>
void DecodeFields(const unsigned char* bytes, T& record, WantText wantText, bool withRaw) {
  using namespace record_codec;
  for (const auto& f : RecordLayoutOf<T>::Value.Fields) {
    const unsigned char* p = bytes + f.Offset;
    switch (f.Kind) {
      case FieldKind::I16:
        record.*(f.I16Member) = GetI16(p);
        break;
      case FieldKind::I32:
        record.*(f.I32Member) = GetI32(p);
        break;
      case FieldKind::F32:
        record.*(f.F32Member) = GetF32(p);
        break;
      case FieldKind::F64:
        record.*(f.F64Member) = GetF64(p);
        break;
      case FieldKind::Text:
        if (wantText(f.TextMember)) record.*(f.TextMember) = GetText(p, f.Width);
        break;
      case FieldKind::Raw:
        if (withRaw) record.*(f.TextMember) = GetRaw(p, f.Width);
        break;
    }
  }
}

// The floating fields of a record that hold an infinity or a NaN (which the program never
// writes) are set to 0. True when there was one.
template <class T>
bool ZeroUnreadableNumbers(T& record) {
  bool found = false;
  for (const auto& f : RecordLayoutOf<T>::Value.Fields) {
    if (f.Kind == FieldKind::F32 && !std::isfinite(record.*(f.F32Member))) {
      record.*(f.F32Member) = 0;
      found = true;
    }
    if (f.Kind == FieldKind::F64 && !std::isfinite(record.*(f.F64Member))) {
      record.*(f.F64Member) = 0;
      found = true;
    }
  }
  return found;
}

template <class T>
void DecodeRecord(const unsigned char* bytes, T& record) {
  DecodeFields(
      bytes, record, [](std::string T::*) { return true; }, true);
}

// The numbers of a record and only the texts named: for scans of whole files, where decoding
// every text would cost more than the scan itself.
template <class T>
void DecodeNumbersAnd(const unsigned char* bytes, T& record,
                      std::initializer_list<std::string T::*> texts) {
  DecodeFields(
      bytes, record,
      [&](std::string T::*member) {
        return std::find(texts.begin(), texts.end(), member) != texts.end();
      },
      false);
}
