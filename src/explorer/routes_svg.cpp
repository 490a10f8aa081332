#include "explorer/routes_svg.h"

#include "foundation/code_page.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <array>
#include <cmath>
#include <utility>

namespace vantor {

namespace {

// Two places are finer than any screen.
std::string number(double value) {
    return generalNumber(std::round(value * 100) / 100 + 0.0);
}

std::string colourText(MapColour colour) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) {
        text += digits[(colour >> static_cast<unsigned>(shift)) & 0xFU];
    }
    return text;
}

// `name="value"` with a blank ahead.
std::string attribute(std::string_view name, std::string_view value) {
    return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string attribute(std::string_view name, double value) {
    return attribute(name, number(value));
}

std::string attribute(std::string_view name, MapColour colour) {
    return attribute(name, colourText(colour));
}

std::string escaped(std::string_view text) {
    std::string result = replaceAll(toUtf8(text), "&", "&amp;");
    result = replaceAll(result, "<", "&lt;");
    return replaceAll(replaceAll(result, ">", "&gt;"), "\"", "&quot;");
}

std::string pathOf(std::span<const FlatPoint> points) {
    std::string path;
    for (const FlatPoint& point : points) {
        path += (path.empty() ? "M" : "L") + number(point.x) + " " + number(point.y);
    }
    return path;
}

} // namespace

SvgSurface::SvgSurface(double width, double height, SvgFont font)
    : m_width(width), m_height(height), m_font(std::move(font)) {}

void SvgSurface::fillBox(const FlatBox& box, MapColour colour, double opacity) {
    m_elements += "<rect" + attribute("x", box.left) + attribute("y", box.top) +
                  attribute("width", box.right - box.left) + attribute("height", box.bottom - box.top) +
                  attribute("fill", colour) + (opacity < 1 ? attribute("fill-opacity", opacity) : "") + "/>\n";
}

void SvgSurface::fillArea(std::span<const FlatPoint> outline, MapColour colour) {
    if (outline.size() > 2) {
        m_elements += "<path" + attribute("d", pathOf(outline) + "Z") + attribute("fill", colour) + "/>\n";
    }
}

void SvgSurface::drawLine(std::span<const FlatPoint> points, const MapPen& pen) {
    std::string dashes;
    for (const double length : pen.dashes) {
        dashes += (dashes.empty() ? "" : " ") + number(length);
    }
    m_elements +=
        "<path" + attribute("d", pathOf(points)) + attribute("fill", std::string_view("none")) +
        attribute("stroke", pen.colour) + attribute("stroke-width", pen.width) +
        (pen.opacity < 1 ? attribute("stroke-opacity", pen.opacity) : "") +
        (dashes.empty() ? "" : attribute("stroke-dasharray", dashes) + attribute("stroke-dashoffset", pen.along)) +
        "/>\n";
}

void SvgSurface::drawDot(FlatPoint centre, double radius, MapColour fill, MapColour rim) {
    m_elements += "<circle" + attribute("cx", centre.x) + attribute("cy", centre.y) + attribute("r", radius) +
                  attribute("fill", fill) + attribute("stroke", rim) + "/>\n";
}

void SvgSurface::drawText(const FlatBox& box, std::string_view text, MapColour colour, MapColour halo) {
    const double baseline = (box.top + box.bottom - m_font.height) / 2 + m_font.ascent;
    const std::string place = attribute("x", box.left) + attribute("y", baseline);
    const std::string words = ">" + escaped(text) + "</text>\n";
    // The halo is a text of its own below: an order of painting is not yet in this version of SVG.
    m_elements += "<text" + place + attribute("fill", halo) + attribute("stroke", halo) +
                  attribute("stroke-width", 3.0) + attribute("stroke-linejoin", std::string_view("round")) + words;
    m_elements += "<text" + place + attribute("fill", colour) + words;
}

std::string SvgSurface::file(std::string_view title) const {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\"" +
           attribute("width", m_width) + attribute("height", m_height) +
           attribute("viewBox", "0 0 " + number(m_width) + " " + number(m_height)) +
           attribute("font-family", escaped(m_font.family)) + attribute("font-size", m_font.size) + ">\n<title>" +
           escaped(title) + "</title>\n" + m_elements + "</svg>\n";
}

} // namespace vantor
