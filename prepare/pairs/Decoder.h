// Turns drawings in other forms into text.
#pragma once

#include <string>
#include <string_view>

namespace prepare {

// Takes a file part by part.
class Decoder {
public:
    virtual ~Decoder() = default;

    // Adds the text of the next part to text; what needs bytes of a later part waits for them.
    virtual void Take(std::string_view bytes, std::string& text) = 0;
    // Adds the text of the bytes that still wait, at the end of the file.
    virtual void Finish(std::string& text) = 0;
    // True once there were bytes that this form cannot have: the rest gives no text.
    virtual bool IsBroken() const { return false; }
};

} // namespace prepare
