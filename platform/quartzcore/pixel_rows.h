#pragma once

#include <cstdint>

/// Loops over a row of pixels, `count` of them. Internal to the renderer.
///
/// A pixel is 0xAARRGGBB, premultiplied; what is drawn on too, and may be transparent. "Opaque" sources may
/// hold anything in place of alpha. Products of two 8-bit values are divided by 255 and rounded to the
/// nearest.

using Pixel = std::uint32_t;
inline constexpr Pixel opaqueBlackPixel = 0xFF000000;

/// A premultiplied pixel, all of it times `factor` / 255.
Pixel scaledPixel(Pixel pixel, std::uint8_t factor);

void fillRow(Pixel* row, int count, Pixel color);
/// Lays a colour over the row.
void tintRow(Pixel* row, int count, Pixel color);
/// Copies opaque pixels.
void copyRow(Pixel* row, const Pixel* opaque, int count);
/// The two above in one pass: a copy with a colour laid over it.
void copyTintedRow(Pixel* row, const Pixel* opaque, int count, Pixel color);
/// Lays opaque pixels over the row, made transparent by `opacity`, 0 to 255.
void fadeRow(Pixel* row, const Pixel* opaque, int count, std::uint8_t opacity);
/// Lays premultiplied pixels over the row, made more transparent by `opacity`, 0 to 255.
void blendRow(Pixel* row, const Pixel* source, int count, std::uint8_t opacity);
/// Lays a colour over the row, through the mask `along[i]` x `across` as ShadowMask defines it.
void shadowRow(Pixel* row, const std::uint16_t* along, std::uint16_t across, int count, Pixel color);
