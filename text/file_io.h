// Locating, reading and writing whole text files. Failures are appended to
// the caller's error text as detail lines; the functions return whether they
// succeeded.
#pragma once

#include <cstddef>

#include "text/encoded_output.h"
#include "text/encoding.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

// Files are read in pieces of this many bytes, and texts are encoded and
// written in pieces of this many units, so neither a file's bytes nor an
// encoded text is ever held whole.
constexpr std::size_t kReadPieceBytes = std::size_t(256) << 10;
constexpr std::size_t kWritePieceUnits = std::size_t(64) << 10;

// A path that starts with exactly one "\" ("\templates\a.txt", not a UNC
// path) lies below basePath, whose trailing separators are dropped; with an
// empty basePath it is relative to the current directory. Every path is then
// made absolute and normalised; when that fails it is returned as built.
WString ResolveFilePath(const WString& path, const WString& basePath);

// Reads the whole file at the resolved `path` into `text`, which is emptied
// first. `encoding` goes in as the type to use (isExplicit) or to assume
// without a mark, and comes out as what the bytes were: with isExplicit only
// that type's own mark is looked for; otherwise any mark decides. A missing
// file is no error when skipIfMissing; otherwise, and for a file that cannot
// be read or whose bytes are invalid in the ANSI code page, the detail line
// MsgCannotReadFile is appended.
bool ReadTextFile(const WString& path, WString& text, bool skipIfMissing, EncodingInfo& encoding, bool isExplicit,
                  CErrorText& errorText);

// Encodes `text` as `encoding` says (mark included when encoding.bom) and
// replaces the file in one piece. Characters outside the ANSI code page are an
// error when isExplicit; otherwise the file is written as UTF-8 with a mark.
bool WriteTextFile(const WString& path, WStringView text, const EncodingInfo& encoding, bool isExplicit,
                   CErrorText& errorText);

// WriteTextFile for a text whose start `encoded` holds, encoded as
// encoding.type, and whose end is `rest`: the same file, the same errors.
bool WriteEncodedTextFile(const WString& path, CEncodedOutput& encoded, WString rest, const EncodingInfo& encoding,
                          bool isExplicit, CErrorText& errorText);

}  // namespace NScrivolt
