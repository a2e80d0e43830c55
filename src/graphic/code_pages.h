#pragma once

namespace zolt {

inline constexpr int kWindowsCodePage = 1252;
inline constexpr int kMacRomanCodePage = 10000;
inline constexpr int kUtf8CodePage = 65001;

/// The Unicode character of a byte in code page 437, 850, 1250, 1251, 1252, 1253
/// or 1254; 0 for a byte or a code page that isn't known. Bytes below 128 are
/// ASCII in all of them.
char32_t characterOfByte(int codePage, unsigned char byte);

/// The name by which iconv knows a code page that isn't among those of
/// characterOfByte(); nullptr for one that no program writes.
const char *converterOf(int codePage);

/// The code page itself if its characters are known, else 1252, as programs take it.
int readableCodePage(int codePage);

/// The code page that belongs to a font's character set, \fcharset in RTF. Set 1
/// and sets unknown give the document's own code page.
int codePageOfCharset(int charset, int documentCodePage);

} // namespace zolt
