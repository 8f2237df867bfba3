// What an option's value must be. Each gives why text cannot be the value, or an empty text.
#pragma once

#include <string>

namespace plexorn {

std::string CheckNotEmpty(const std::string& text);
std::string CheckColour(const std::string& text);
std::string CheckUnits(const std::string& text);
std::string CheckMessageFormat(const std::string& text);
std::string CheckScale(const std::string& text);
std::string CheckFit(const std::string& text);
std::string CheckJobs(const std::string& text);
std::string CheckPercentage(const std::string& text);
std::string CheckCount(const std::string& text);
std::string CheckReader(const std::string& text);
std::string CheckLayers(const std::string& text);
std::string CheckTolerance(const std::string& text);
std::string CheckLayersAs(const std::string& text);
std::string CheckFill(const std::string& text);
std::string CheckLayout(const std::string& text);
std::string CheckEncoding(const std::string& text);

} // namespace plexorn
