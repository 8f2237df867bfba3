// The forms of the texts that a host gets.
#pragma once

#include <string_view>

// Unicode: no half of a pair alone, nothing beyond the last character.
bool IsWellFormed(std::wstring_view text);

// A number as "%f" writes it with so many decimals; "inf" and "-inf", "nan" without a sign.
bool IsFixed(std::wstring_view text, int decimals);
// The same, above 0 and not infinite.
bool IsPositiveFixed6(std::wstring_view text);
// As "%4.2f" and "%g" do.
bool IsWidth4Fixed2(std::wstring_view text);
bool IsGeneral(std::wstring_view text);

// "RGB(r,g,b)" with parts up to 255, or one of the colours of dimensions.
bool IsColour(std::wstring_view text);
// Nothing, or numbers from 0 on with commas between them.
bool IsDashArray(std::wstring_view text);
// Nothing, or "x,y" pairs with single blanks between them.
bool IsPoints(std::wstring_view text);
// "M x,y A rx,ry, 0 f,f x,y"
bool IsArcPath(std::wstring_view text);
