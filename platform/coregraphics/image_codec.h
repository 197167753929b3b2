#pragma once

#include <cstdint>
#include <limits>

#include "platform/coregraphics/cg_image.h"
#include "platform/foundation/ns_data.h"

/// Decodes PNG or JPEG by content, whatever the file was called: grey pictures without alpha to 8-bit grey,
/// all others to 32-bit screen layout. Null for anything that cannot be decoded whole. A JPEG's EXIF
/// orientation (1 to 8) goes to `*exifOrientation` when one is given; 1 where there is none. A picture of
/// more than `largestSide` pixels a side is refused by its header, before it costs anything.
CGImageRef decodeImage(const NSData& data, int* exifOrientation = nullptr,
                       std::uint32_t largestSide = std::numeric_limits<std::uint32_t>::max());

enum class ChromaSubsampling {
  BelowBest,  ///< Colours at half the resolution, unless the quality is 1.
  Never,
};

/// `quality` 0 to 1. Alpha is composed onto black. Empty for no picture.
NSData encodeJpeg(const CGImageRef& image, CGFloat quality,
                  ChromaSubsampling subsampling = ChromaSubsampling::BelowBest);
NSData encodePng(const CGImageRef& image);
