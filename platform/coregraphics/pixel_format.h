#pragma once

#include "platform/coregraphics/cg_image.h"

/// Layouts of pixels and conversion between them. Internal: no public header includes this one.

bool hasAlpha(const CGPixelFormat& format);

/// The 32-bit layout that Cairo draws with: the opaque one for formats without alpha.
CGPixelFormat screenFormatFor(const CGPixelFormat& format);

/// True when Cairo can take these bytes as they are: screen layout, whole words, rows of words.
bool isInScreenFormat(const std::uint8_t* data, std::size_t bytesPerRow, const CGPixelFormat& format);

/// Converts `count` pixels between two supported formats. Colours with alpha, premultiplied as they are, come
/// out composed onto black where the target has none; an unused fourth byte is written as 255.
void convertPixels(const std::uint8_t* from, const CGPixelFormat& fromFormat, std::uint8_t* to,
                   const CGPixelFormat& toFormat, int count);
