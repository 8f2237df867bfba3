// What preparing chooses by how a drawing was measured.
#pragma once

#include "prepare/Options.h"
#include "prepare/plain/Converter.h"
#include "prepare/plain/Measure.h"
#include "prepare/write/DrawingWriter.h"

#include <cstdint>

namespace prepare {

// How many entities a drawing of so many bytes may unfold to.
std::uint64_t MostPlaced(std::uint64_t bytes);

// How a drawing is measured: with curves as coarse as they may be.
ConvertSettings CoarseSettings(std::uint64_t mostPlaced);

// How a model is written. rayStarts: around the starts of its rays.
WriteSettings WriteSettingsFor(const Measured& measured, const Box& rayStarts, const Options& options);

// How a sheet is written. paper is empty where its size is not known.
WriteSettings WriteSettingsForSheet(const Measured& measured, const Box& paper, const Options& options);

} // namespace prepare
