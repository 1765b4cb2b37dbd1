// The body of a print option record: one flat block of 16,548 bytes that the companion module sees
// through a pointer. Members carry the names of their tags; the layout is frozen.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ddb {

inline constexpr std::int32_t kNoCode = -1;                 // a code that is not specified
inline constexpr std::int32_t kNoLength = -0x7FFFFFFF - 1;  // a length that is not specified

// A text of at most kChars characters; a marked one has a "set" byte behind it.
template <std::size_t kChars, bool kMarked>
struct TextField {
  char text[kChars + 1];
};

template <std::size_t kChars>
struct TextField<kChars, true> {
  char text[kChars + 1];
  std::uint8_t set;
};

// The settings of one kind of sheet; sizes in hundredths of a millimetre.
template <std::size_t kFileNameChars, bool kMarked>
struct PaperFields {
  TextField<510, kMarked> NAME;
  TextField<kFileNameChars, kMarked> FNAME;
  std::int32_t TRAY;
  std::int32_t PPSIZE;
  std::int32_t PPSIZEX;
  std::int32_t PPSIZEY;
  std::int32_t PPCLR;
  TextField<60, kMarked> PPCCLR;
  std::int32_t PPTYP;
  TextField<60, kMarked> CPPTYP;
  std::int32_t ORDER;
  std::int32_t DRILLED;
  std::int32_t WIGHT;
  std::int32_t COAT;
  std::int32_t CTTYP;
};
using MarkedPaper = PaperFields<259, true>;
using PlainPaper = PaperFields<260, false>;

// The order of fields is the format, and a macro cannot put a name in parentheses.
// NOLINTBEGIN(bugprone-macro-parentheses,clang-analyzer-optin.performance.Padding)
struct PrintOptionBody {
#define NUMBER(tag, kind, initial) std::int32_t tag;
#define SHARED(tag, field, kind, initial)
#define PLAIN_TEXT(tag, n) TextField<n, false> tag;
#define MARKED_TEXT(tag, n) TextField<n, true> tag;
#define PASSWORD(tag) TextField<64, true> tag;
#define FLAG(tag) std::uint8_t tag;
#define IGNORED(tag)
#define PAPER(prefix) PlainPaper prefix;
#define MARKED_PAPER(prefix) MarkedPaper prefix;
#include "ddb/print_option_fields.inc"
  std::uint8_t reserved[84];
};
// NOLINTEND(bugprone-macro-parentheses,clang-analyzer-optin.performance.Padding)

static_assert(sizeof(PrintOptionBody) == 16548);
static_assert(offsetof(PrintOptionBody, PG_NUMBR) == 0);
static_assert(offsetof(PrintOptionBody, ST_) == 604);
static_assert(offsetof(PrintOptionBody, CL_CMODE) == 1568);
static_assert(offsetof(PrintOptionBody, OUT_BKLP) == 4744);
static_assert(offsetof(PrintOptionBody, ST_FC) == 4884);
static_assert(offsetof(PrintOptionBody, SP_FMPAS) == 7248);
static_assert(offsetof(PrintOptionBody, RPT_RPTP) == 7648);
static_assert(offsetof(PrintOptionBody, USR_SCPS) == 8880);
static_assert(offsetof(PrintOptionBody, ST_BLFS) == 11596);
static_assert(offsetof(PrintOptionBody, BUILD_NEW_SHEET) == 16316);
static_assert(offsetof(PrintOptionBody, CBS_PRT) == 16460);
static_assert(offsetof(PrintOptionBody, reserved) == 16464);

}  // namespace ddb
