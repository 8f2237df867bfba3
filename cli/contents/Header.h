// What a drawing's HEADER section states.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace plexorn {

struct HeaderPoint {
    double x = 0;
    double y = 0;
};

// A variable that the header lacks is empty here. Texts are the file's bytes.
struct Header {
    std::string version;            // $ACADVER
    std::string codePage;           // $DWGCODEPAGE
    std::optional<int> units;       // $INSUNITS
    std::string unitsText;          // its digits as written: units may be only the nearest int
    std::optional<int> measurement; // $MEASUREMENT
    std::optional<HeaderPoint> extentsMin, extentsMax;
    std::optional<HeaderPoint> limitsMin, limitsMax;
    int readError = 0; // errno of a failed read; what follows it is not counted
};

// Takes the header's pairs one by one.
class HeaderReader {
public:
    explicit HeaderReader(Header& header) : m_header(header) {}

    void Take(int code, std::string_view value);

private:
    std::optional<HeaderPoint>* Point() const;

    Header& m_header;
    std::string m_variable;
};

// Reads a drawing from file as far as its header, which is the first section where there is one.
Header ReadHeader(std::FILE* file);

// The release whose format has that number ("R2000" for "AC1015"); empty for others.
std::string_view ReleaseOfVersion(std::string_view version);

} // namespace plexorn
