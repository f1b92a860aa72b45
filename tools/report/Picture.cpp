#include "tools/report/Picture.h"

#include "tools/report/Projection.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <limits>
#include <sstream>

namespace Tolvane::Tools {
namespace {

constexpr double kWidth = 1000;
constexpr double kMargin = 28;
constexpr double kHeadHeight = 88;
constexpr double kRowGap = 46;
constexpr double kFootHeight = 58;
constexpr double kHighestRow = 230;

struct Colour {
    BodySide side;
    const char* name;
    const char* code;
};

// In the order in which they are drawn: seen from the side, the left of the body is at the back.
constexpr std::array<Colour, 3> kColours{{{BodySide::Left, "left", "#d9822b"},
                                          {BodySide::Middle, "middle", "#3d4b5c"},
                                          {BodySide::Right, "right", "#2878b5"}}};

using View = std::vector<ViewPoint> Figure::*;

bool isFinite(const ViewPoint& point) {
    return std::isfinite(point.across) && std::isfinite(point.up);
}

// File names may contain any bytes; in the picture, those that are not ASCII become question marks.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char character : oneLine(text)) {
        if (character == '&')
            result += "&amp;";
        else if (character == '<')
            result += "&lt;";
        else
            result += static_cast<unsigned char>(character) < 0x80 ? character : '?';
    }
    return result;
}

std::string pathStep(char command, double x, double y) {
    std::ostringstream text;
    text.precision(1);
    text << std::fixed << command << x << ' ' << y;
    return text.str();
}

class Drawing {
public:
    Drawing(const Rig& rig, const std::vector<Snapshot>& snapshots)
        : m_rig(rig), m_sides(bodySides(rig)) {
        for (const Snapshot& snapshot : snapshots)
            m_figures.push_back(project(rig, snapshot, m_sides));
        measure();
        m_out.precision(1);
        m_out << std::fixed;
    }

    std::string draw() {
        begin();
        drawHead();
        const double frontGround = kHeadHeight + m_rowHeight;
        const double sideGround = frontGround + kRowGap + m_rowHeight;
        drawRow("front", &Figure::front, frontGround);
        drawRow("side", &Figure::side, sideGround);
        drawFrameLabels(sideGround);
        m_out << "</svg>\n";
        return m_out.str();
    }

private:
    // All figures are drawn to the same scale and stand on the same ground.
    void measure() {
        double reach = 0;
        double highest = -std::numeric_limits<double>::infinity();
        m_ground = -highest;
        for (const Figure& figure : m_figures)
            for (const View view : {&Figure::front, &Figure::side})
                for (const ViewPoint& point : figure.*view) {
                    if (!isFinite(point)) continue;
                    reach = std::max(reach, std::abs(point.across));
                    highest = std::max(highest, point.up);
                    m_ground = std::min(m_ground, point.up);
                }
        m_columnWidth = (kWidth - 2 * kMargin) /
                        static_cast<double>(std::max<std::size_t>(m_figures.size(), 1));
        const double height = highest - m_ground;
        m_scale = 1;
        if (reach > 0) m_scale = std::min(0.46 * m_columnWidth, kHighestRow) / reach;
        if (height > 0) m_scale = std::min(reach > 0 ? m_scale : kHighestRow, kHighestRow / height);
        m_rowHeight = height > 0 ? height * m_scale : 0;
    }

    void begin() {
        const double height = kHeadHeight + 2 * m_rowHeight + kRowGap + kFootHeight;
        m_out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << kWidth << ' '
              << height << "\" font-family=\"system-ui, sans-serif\" font-size=\"13\""
              << " fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n"
              << "<rect x=\"0.5\" y=\"0.5\" width=\"" << kWidth - 1 << "\" height=\"" << height - 1
              << "\" rx=\"8\" fill=\"#ffffff\" stroke=\"#d5dbe3\"/>\n";
    }

    void drawHead() {
        const std::string file = std::filesystem::path(m_rig.file).filename().string();
        text(kMargin, 32, "start", "#1f2933",
             escaped(file) + ": the skeleton as it came back from the graph");
        std::string legend;
        for (const Colour& colour : kColours)
            legend += std::string(legend.empty() ? "" : "&#8195;") + "<tspan fill=\"" +
                      colour.code + "\">" + colour.name + "</tspan>";
        text(kWidth - kMargin, 32, "end", "none", legend);
    }

    void drawRow(const char* name, View view, double ground) {
        m_out << "<path d=\"M" << kMargin << ' ' << ground << "H" << kWidth - kMargin
              << "\" stroke=\"#b8c2cc\"/>\n";
        text(kMargin, ground - m_rowHeight - 12, "start", "#66788a", name);
        for (std::size_t i = 0; i < m_figures.size(); ++i)
            for (const Colour& colour : kColours)
                drawBones(m_figures[i].*view, colour, columnMiddle(i), ground);
    }

    // The bones of one side of the body, and the joints at their ends as dots.
    void drawBones(const std::vector<ViewPoint>& points, const Colour& colour, double x,
                   double ground) {
        const auto step = [&](char command, const ViewPoint& point) {
            return pathStep(command, x + m_scale * point.across,
                            ground - m_scale * (point.up - m_ground));
        };
        std::string bones, dots;
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (m_sides[i] != colour.side || !isFinite(points[i])) continue;
            dots += step('M', points[i]) + "h0";
            const auto parent = m_rig.joints[i].parent;
            if (parent && isFinite(points[*parent]))
                bones += step('M', points[*parent]) + step('L', points[i]);
        }
        drawPath(bones, colour, "2.5");
        drawPath(dots, colour, "5");
    }

    void drawPath(const std::string& path, const Colour& colour, const char* strokeWidth) {
        if (path.empty()) return;
        m_out << "<path stroke=\"" << colour.code << "\" stroke-width=\"" << strokeWidth
              << "\" d=\"" << path << "\"/>\n";
    }

    void drawFrameLabels(double ground) {
        for (std::size_t i = 0; i < m_figures.size(); ++i) {
            const std::size_t frame = m_figures[i].frame;
            std::ostringstream seconds;
            seconds.precision(2);
            seconds << std::fixed << static_cast<double>(frame) / m_rig.framesPerSecond << " s";
            text(columnMiddle(i), ground + 24, "middle", "#1f2933",
                 "frame " + std::to_string(frame));
            text(columnMiddle(i), ground + 42, "middle", "#66788a", seconds.str());
        }
    }

    void text(double x, double y, const char* anchor, const char* colour,
              const std::string& content) {
        m_out << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor
              << "\" fill=\"" << colour << "\">" << content << "</text>\n";
    }

    double columnMiddle(std::size_t column) const {
        return kMargin + (static_cast<double>(column) + 0.5) * m_columnWidth;
    }

    const Rig& m_rig;
    std::vector<BodySide> m_sides;
    std::vector<Figure> m_figures;
    std::ostringstream m_out;
    double m_ground = 0;
    double m_scale = 1;
    double m_columnWidth = 0;
    double m_rowHeight = 0;
};

}  // namespace

std::string drawPicture(const Rig& rig, const std::vector<Snapshot>& snapshots) {
    return Drawing(rig, snapshots).draw();
}

}  // namespace Tolvane::Tools
