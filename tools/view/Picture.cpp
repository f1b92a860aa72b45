#include "tools/view/Picture.h"

#include "tools/view/Markup.h"
#include "tools/view/Projection.h"
#include "tools/view/ScaleBar.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <sstream>

namespace Tolvane::Tools {
namespace {

// In pixels.
constexpr double kColumn = 230;
constexpr double kNarrowest = 520;
constexpr double kWidest = 1000;
constexpr double kMargin = 28;
constexpr double kHeadHeight = 112;
constexpr double kRowGap = 46;
constexpr double kFootHeight = 96;
constexpr double kLineHeight = 18;
constexpr double kLowestRow = 40;
constexpr double kHighestRow = 230;
constexpr double kHighestRowOfOne = 320;
// A character of a name, half of one that is wide; and what is left for names beside the colours of
// the sides, and before the number of frames.
constexpr double kColumnOfText = 10;
constexpr double kLegendAndMargins = 300;
constexpr double kLongestBar = 130;
constexpr double kAxisLength = 34;
// A figure that is a single point needs room for its axes.
constexpr double kRoomForAxes = kAxisLength + 12;

constexpr const char* kInk = "#1f2933";
constexpr const char* kPale = "#66788a";

struct Colour {
    BodySide side;
    const char* name;
    const char* code;
};

// In the order in which they are drawn: seen from the side, the left of the body is at the back.
constexpr std::array<Colour, 3> kColours{{{BodySide::Left, "left", "#d9822b"},
                                          {BodySide::Middle, "middle", "#3d4b5c"},
                                          {BodySide::Right, "right", "#2878b5"}}};

struct Axis {
    const char* name;
    const char* colour;
};
constexpr std::array<Axis, 3> kAxes{{{"x", "#c0392b"}, {"y", "#2e8b57"}, {"z", "#2878b5"}}};

// One view of all figures, which stand in a row.
struct Row {
    const char* name;
    ViewPoints Figure::*points;
    std::array<ViewPoint, 3> Figure::*axes;
    double lowest = 0;
    double highest = 0;
    // Where the row begins, and where `lowest` is, in the picture.
    double top = 0;
    double ground = 0;
};

std::string number(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

std::string fixed(double value, int digits) {
    std::ostringstream text;
    text.precision(digits);
    text << std::fixed << value;
    return text.str();
}

std::string pathStep(char command, double x, double y) {
    return command + fixed(x, 1) + ' ' + fixed(y, 1);
}

// A name of any script, which must not turn the text around it.
std::string isolated(const std::string& name) {
    return "<tspan unicode-bidi=\"isolate\">" + name + "</tspan>";
}

class Drawing {
public:
    Drawing(const Rig& rig, const std::vector<Snapshot>& snapshots)
        : m_rig(rig), m_projection(project(rig, snapshots)) {
        const bool fromAbove = m_projection.isSeenFromAbove;
        m_rows = {
            {{fromAbove ? "above" : "front", &Figure::frontOrAbove, &Figure::axesInFrontOrAbove},
             {"side", &Figure::side, &Figure::axesInSide}}};
        m_out.precision(1);
        m_out << std::fixed;
        measure();
    }

    std::string draw() {
        begin();
        drawHead();
        for (const Row& row : m_rows) drawRow(row);
        drawFrameLabels();
        drawFoot();
        m_out << "</svg>\n";
        return m_out.str();
    }

private:
    // All figures are drawn to the same scale and stand on the same ground.
    void measure() {
        const std::vector<Figure>& figures = m_projection.figures;
        const auto count = static_cast<double>(std::max<std::size_t>(figures.size(), 1));
        m_width = std::clamp(2 * kMargin + count * kColumn, kNarrowest, kWidest);
        m_columnWidth = (m_width - 2 * kMargin) / count;
        const double highestRow = figures.size() > 1 ? kHighestRow : kHighestRowOfOne;

        double scale = std::numeric_limits<double>::infinity();
        for (Row& row : m_rows) {
            const double reach = measure(row);
            if (reach > 0) scale = std::min(scale, 0.46 * m_columnWidth / reach);
            const double height = row.highest - row.lowest;
            if (height > 0) scale = std::min(scale, highestRow / height);
        }
        m_isMeasured = std::isfinite(scale);
        if (m_isMeasured) m_scale = scale;

        double top = kHeadHeight;
        const double room = m_projection.isPoint ? kRoomForAxes : 0;
        for (Row& row : m_rows) {
            const double height =
                std::max(m_scale * (row.highest - row.lowest) + 2 * room, kLowestRow);
            row.top = top;
            row.ground = top + height - room;
            top += height + kRowGap;
        }
        m_bottom = top - kRowGap;
    }

    // How far the figures reach from their middle.
    double measure(Row& row) const {
        double reach = 0;
        row.lowest = std::numeric_limits<double>::infinity();
        row.highest = -row.lowest;
        for (const Figure& figure : m_projection.figures)
            for (const auto& point : figure.*row.points) {
                if (!point) continue;
                reach = std::max(reach, std::abs(point->across));
                row.lowest = std::min(row.lowest, point->up);
                row.highest = std::max(row.highest, point->up);
            }
        if (!(row.lowest <= row.highest)) row.lowest = row.highest = 0;
        return reach;
    }

    void begin() {
        const double notDrawn = m_projection.notDrawn.empty() ? 0 : kLineHeight;
        const double height = m_bottom + kFootHeight + notDrawn;
        m_out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << m_width << ' '
              << height << "\" font-family=\"system-ui, sans-serif\" font-size=\"13\""
              << " fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n"
              << "<rect x=\"0.5\" y=\"0.5\" width=\"" << m_width - 1 << "\" height=\"" << height - 1
              << "\" rx=\"8\" fill=\"#ffffff\" stroke=\"#d5dbe3\"/>\n";
    }

    void drawHead() {
        const std::string file = std::filesystem::path(m_rig.file).filename().string();
        const auto most = static_cast<std::size_t>((m_width - kLegendAndMargins) / kColumnOfText);
        m_out << "<title>" << markup(file) << "</title>\n";
        text(kMargin, 36, "start", kInk, isolated(markup(file, most)),
             " font-size=\"17\" font-weight=\"600\"");
        text(kMargin, 58, "start", kPale, frames(most));
        drawLegend();
    }

    // Such as "walk · 60 frames at 30 per second".
    std::string frames(std::size_t mostColumns) const {
        if (m_rig.frameCount == 1) return "a single frame";
        const std::string animation = markup(m_rig.animation, mostColumns);
        return (animation.empty() ? "" : isolated(animation) + " · ") +
               std::to_string(m_rig.frameCount) + " frames at " + number(m_rig.framesPerSecond) +
               " per second";
    }

    // The colours of the sides, where the sides are known.
    void drawLegend() {
        const auto has = [this](BodySide side) {
            return std::count(m_projection.sides.begin(), m_projection.sides.end(), side) > 0;
        };
        if (!has(BodySide::Left) && !has(BodySide::Right)) return;
        std::string legend;
        for (const Colour& colour : kColours)
            if (has(colour.side))
                legend += std::string(legend.empty() ? "" : "&#8195;") + "<tspan fill=\"" +
                          colour.code + "\">● " + colour.name + "</tspan>";
        text(m_width - kMargin, 36, "end", "none", legend);
    }

    void drawRow(const Row& row) {
        if (row.points != &Figure::frontOrAbove || !m_projection.isSeenFromAbove)
            m_out << "<path d=\"M" << kMargin << ' ' << row.ground << "H" << m_width - kMargin
                  << "\" stroke=\"#b8c2cc\"/>\n";
        text(kMargin, row.top - 12, "start", kPale, row.name);
        for (std::size_t i = 0; i < m_projection.figures.size(); ++i) {
            const Figure& figure = m_projection.figures[i];
            if (m_projection.isPoint) drawAxes(figure, row, columnMiddle(i));
            for (const Colour& colour : kColours)
                drawBones(figure.*row.points, colour, columnMiddle(i), row);
        }
    }

    // The bones of one side of the body, and the joints at their ends as dots.
    void drawBones(const ViewPoints& points, const Colour& colour, double x, const Row& row) {
        const auto step = [&](char command, const ViewPoint& point) {
            return pathStep(command, x + m_scale * point.across, heightOf(point, row));
        };
        std::string bones, dots;
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (m_projection.sides[i] != colour.side || !points[i]) continue;
            dots += step('M', *points[i]) + "h0";
            const auto parent = m_rig.joints[i].parent;
            if (parent && points[*parent])
                bones += step('M', *points[*parent]) + step('L', *points[i]);
        }
        drawPath(bones, colour.code, "2.5");
        drawPath(dots, colour.code, "5");
    }

    // Which way the first joint is turned.
    void drawAxes(const Figure& figure, const Row& row, double x) {
        const auto& points = figure.*row.points;
        if (points.empty() || !points.front()) return;
        const double y = heightOf(*points.front(), row);
        for (std::size_t i = 0; i < kAxes.size(); ++i) {
            const ViewPoint& tip = (figure.*row.axes)[i];
            if (std::hypot(tip.across, tip.up) < 0.1) continue;
            const double across = kAxisLength * tip.across, up = kAxisLength * tip.up;
            drawPath(pathStep('M', x, y) + pathStep('L', x + across, y - up), kAxes[i].colour, "2");
            text(x + 1.25 * across, y - 1.25 * up + 4, "middle", kAxes[i].colour, kAxes[i].name,
                 " font-size=\"11\"");
        }
    }

    double heightOf(const ViewPoint& point, const Row& row) const {
        return row.ground - m_scale * (point.up - row.lowest);
    }

    void drawPath(const std::string& path, const char* colour, const char* strokeWidth) {
        if (path.empty()) return;
        m_out << "<path stroke=\"" << colour << "\" stroke-width=\"" << strokeWidth << "\" d=\""
              << path << "\"/>\n";
    }

    void drawFrameLabels() {
        for (std::size_t i = 0; i < m_projection.figures.size(); ++i) {
            const std::size_t frame = m_projection.figures[i].frame;
            text(columnMiddle(i), m_bottom + 24, "middle", kInk, "frame " + std::to_string(frame));
            text(columnMiddle(i), m_bottom + 42, "middle", kPale,
                 fixed(static_cast<double>(frame) / m_rig.framesPerSecond, 2) + " s");
        }
    }

    void drawFoot() {
        const double base = m_bottom + kFootHeight - 18;
        text(kMargin, base, "start", kPale, "The skeleton as it came back from the graph",
             " font-size=\"12\"");
        if (const std::size_t count = m_projection.notDrawn.size()) {
            const std::string& first = m_rig.joints[m_projection.notDrawn.front()].name;
            std::string caption =
                "Not drawn, for not near the rest: " + isolated(markup(first, 24));
            if (count > 1) caption += " and " + std::to_string(count - 1) + " more";
            text(kMargin, base + kLineHeight, "start", kPale, caption, " font-size=\"12\"");
        }
        const auto bar =
            m_isMeasured ? scaleBar(kLongestBar / m_scale, m_rig.metresPerUnit) : std::nullopt;
        if (!bar) return;
        const double right = m_width - kMargin, left = right - m_scale * bar->length;
        m_out << "<path d=\"M" << left << ' ' << base - 9 << "v8M" << left << ' ' << base - 5 << "H"
              << right << "m0 -4v8\" stroke=\"" << kInk << "\" stroke-width=\"1.5\"/>\n";
        text((left + right) / 2, base - 15, "middle", kInk, bar->label);
    }

    // `content` is markup.
    void text(double x, double y, const char* anchor, const char* colour,
              const std::string& content, const char* attributes = "") {
        m_out << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor
              << "\" fill=\"" << colour << "\"" << attributes << ">" << content << "</text>\n";
    }

    double columnMiddle(std::size_t column) const {
        return kMargin + (static_cast<double>(column) + 0.5) * m_columnWidth;
    }

    const Rig& m_rig;
    Projection m_projection;
    std::array<Row, 2> m_rows;
    std::ostringstream m_out;
    double m_width = 0;
    double m_columnWidth = 0;
    double m_scale = 1;
    // Whether there is anything that a scale could be told from.
    bool m_isMeasured = false;
    double m_bottom = 0;
};

}  // namespace

std::string drawPicture(const Rig& rig, const std::vector<Snapshot>& snapshots) {
    return Drawing(rig, snapshots).draw();
}

}  // namespace Tolvane::Tools
