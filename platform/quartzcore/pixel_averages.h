#pragma once

#include <cstdint>

#include "platform/quartzcore/pixel_rows.h"

/// Averages of rows of pixels; internal to the renderer. Averages of columns are those of rows of the picture
/// transposed.

/// row[i] = the pixels i of `rows`, each times its row's weight / 65536, added up and rounded; all weights
/// together are 65536 at most, but for their own rounding. `opaque` takes any pixel as opaque.
void averageRows(Pixel* row, const Pixel* const* rows, const std::uint16_t* weights, int rowCount, int count,
                 bool opaque);

/// Makes rows of columns: `from` has `height` rows of `width` pixels, `to` gets `width` rows of `height`. The
/// strides are pixels from row to row.
void transposePixels(const Pixel* from, int stride, int width, int height, Pixel* to, int toStride);
