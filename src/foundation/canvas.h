// Foundation: what the whole program stands on and that knows nothing of traffic.
// The Canvas: a drawing surface in twips, 15 to a pixel at 96 dots an inch.
#pragma once

#include <cstdint>
#include <string_view>

namespace vantor {

/// A red-green-blue value with red in the low byte.
using Colour = std::int32_t;

/// Twips to a pixel at 96 dots an inch.
inline constexpr int twipsPerPixel = 15;

/// A picture box as the drawing code sees it. Positions and sizes are in twips; a text's position is that of its top
/// left corner. Texts are bytes of the code page.
class Canvas {
  public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    /// Size of the surface inside its border.
    [[nodiscard]] virtual double innerWidth() const = 0;
    [[nodiscard]] virtual double innerHeight() const = 0;
    /// Size with the border.
    [[nodiscard]] virtual double outerWidth() const = 0;
    [[nodiscard]] virtual double outerHeight() const = 0;

    virtual void clear() = 0;
    virtual void fillBox(double x1, double y1, double x2, double y2, Colour colour) = 0;
    virtual void drawLine(double x1, double y1, double x2, double y2, Colour colour) = 0;
    virtual void drawText(double x, double y, std::string_view text) = 0;
    [[nodiscard]] virtual double textWidth(std::string_view text) const = 0;
    [[nodiscard]] virtual double textHeight(std::string_view text) const = 0;
    virtual void setFontSize(double points) = 0;
    /// Colour of texts drawn from now on.
    virtual void setTextColour(Colour colour) = 0;
    /// Background of the surface from the next clear on.
    virtual void setBackColour(Colour colour) = 0;
    /// The system's window background and button text.
    virtual void useSystemColours() = 0;
};

} // namespace vantor
