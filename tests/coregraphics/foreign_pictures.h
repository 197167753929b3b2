#pragma once

#include <cstdio>
// jpeglib.h needs what cstdio declares.
#include <jpeglib.h>
#include <png.h>

#include <cstdlib>

#include "platform/foundation/ns_data.h"

/// Picture files of kinds that others write and the frameworks only read.

/// A 20 x 10 JPEG, every pixel of it `sample`: 3 bytes of colour, progressively, or 4 of ink, inverted as
/// photo editors store them.
inline NSData jpegOf(const std::vector<std::uint8_t>& sample) {
  const bool isInk = sample.size() == 4;
  jpeg_compress_struct codec;
  jpeg_error_mgr errors;
  codec.err = jpeg_std_error(&errors);
  jpeg_create_compress(&codec);
  unsigned char* buffer = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&codec, &buffer, &size);
  codec.image_width = 20;
  codec.image_height = 10;
  codec.input_components = int(sample.size());
  codec.in_color_space = isInk ? JCS_CMYK : JCS_RGB;
  jpeg_set_defaults(&codec);
  if (isInk) jpeg_set_colorspace(&codec, JCS_YCCK);
  jpeg_set_quality(&codec, 100, TRUE);
  if (!isInk) jpeg_simple_progression(&codec);
  jpeg_start_compress(&codec, TRUE);
  std::vector<std::uint8_t> row;
  for (int x = 0; x < 20; ++x) row.insert(row.end(), sample.begin(), sample.end());
  JSAMPROW pointer = row.data();
  for (int y = 0; y < 10; ++y) jpeg_write_scanlines(&codec, &pointer, 1);
  jpeg_finish_compress(&codec);
  jpeg_destroy_compress(&codec);
  const NSData data(buffer, buffer + size);
  std::free(buffer);
  return data;
}

struct PngKind {
  int colorType;  ///< PNG_COLOR_TYPE_...
  int bitDepth = 8;
  std::vector<std::uint8_t> paletteAlpha = {};  ///< Of the palette, which is (1, 2, 3), (40, 50, 60).
  int transparentSample = -1;                   ///< The one shade, in all its samples, that is transparent.
  int interlacing = PNG_INTERLACE_NONE;
};

/// A PNG, each row of it `row`, as the file has it.
inline NSData pngOf(int width, int height, const PngKind& kind, const std::vector<std::uint8_t>& row) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  NSData data;
  const auto append = [](png_structp to, png_bytep bytes, std::size_t count) {
    auto& target = *static_cast<NSData*>(png_get_io_ptr(to));
    target.insert(target.end(), bytes, bytes + count);
  };
  png_set_write_fn(png, &data, append, [](png_structp) {});
  png_set_IHDR(png, info, png_uint_32(width), png_uint_32(height), kind.bitDepth, kind.colorType,
               kind.interlacing, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  const png_color palette[] = {{1, 2, 3}, {40, 50, 60}};
  if (kind.colorType == PNG_COLOR_TYPE_PALETTE) png_set_PLTE(png, info, palette, 2);
  const auto sample = png_uint_16(kind.transparentSample);
  const png_color_16 color{0, sample, sample, sample, sample};
  if (!kind.paletteAlpha.empty())
    png_set_tRNS(png, info, kind.paletteAlpha.data(), int(kind.paletteAlpha.size()), nullptr);
  if (kind.transparentSample >= 0) png_set_tRNS(png, info, nullptr, 0, &color);
  std::vector<png_bytep> rows(std::size_t(height), const_cast<png_bytep>(row.data()));
  png_write_info(png, info);
  png_write_image(png, rows.data());
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return data;
}
