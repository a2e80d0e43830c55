#pragma once

#include "core/byte_sink.h"
#include "hp48/preview_compiler.h"

namespace zolt {

/// A compiled text as JSON, in UTF-8, with a line end behind it:
/// {"entries": [{"line": N, "text": T}, ...], "items": [...]}. An item is
/// {"font": F, "text": T}, neighbours in one font joined, or
/// {"picture": {"columns": C, "lines": L, "cells": T}}. In every text a byte is the
/// code point of the same number, and line ends are the characters CR LF.
void writePreviewJson(const CompiledText &compiled, const ByteSink &sink);

} // namespace zolt
