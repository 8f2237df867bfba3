// What preparing chooses by how a drawing was measured.
#pragma once

#include "prepare/Options.h"
#include "prepare/plain/Converter.h"
#include "prepare/plain/Measure.h"
#include "prepare/write/DrawingWriter.h"

#include <cstdint>

namespace prepare {

// The limits for a drawing of that size.
ConvertSettings LimitsOf(std::uint64_t bytes);

// For measuring such a drawing: the limits, and curves as coarse as they may be.
ConvertSettings CoarseSettings(std::uint64_t bytes);

// For converting such a drawing, which is then written with these settings.
ConvertSettings FineSettings(std::uint64_t bytes, const WriteSettings& settings);

// How a model of that size is written. rayStarts: around the starts of its rays.
WriteSettings WriteSettingsFor(const Measured& measured, const Box& rayStarts, std::uint64_t bytes,
                               const Options& options);

// How a sheet of such a drawing is written. paper is empty where its size is not known.
WriteSettings WriteSettingsForSheet(const Measured& measured, const Box& paper, std::uint64_t bytes,
                                    const Options& options);

} // namespace prepare
