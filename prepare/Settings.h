// What preparing chooses by how a drawing was measured.
#pragma once

#include "prepare/Options.h"
#include "prepare/plain/Converter.h"
#include "prepare/plain/Measure.h"
#include "prepare/write/DrawingWriter.h"

#include <cstdint>

namespace prepare {

// What a drawing of so many bytes may come to, and nothing more.
ConvertSettings LimitsOf(std::uint64_t bytes);

// How such a drawing is measured: with curves as coarse as they may be.
ConvertSettings CoarseSettings(std::uint64_t bytes);

// How such a drawing is converted that will be written as these settings say.
ConvertSettings FineSettings(std::uint64_t bytes, const WriteSettings& settings);

// How a model of so many bytes is written. rayStarts: around the starts of its rays.
WriteSettings WriteSettingsFor(const Measured& measured, const Box& rayStarts, std::uint64_t bytes,
                               const Options& options);

// How a sheet of such a drawing is written. paper is empty where its size is not known.
WriteSettings WriteSettingsForSheet(const Measured& measured, const Box& paper, std::uint64_t bytes,
                                    const Options& options);

} // namespace prepare
