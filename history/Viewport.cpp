#include "history/Viewport.h"

#include <algorithm>
#include <limits>

namespace plotvane {
namespace {

// For the samples to come.
constexpr double kRoom = 0.1;  // of the view's length
constexpr double kRoomToGrow = 0.5;
constexpr double kMostToGrow = 30.0;  // seconds

}  // namespace

void Viewport::SetWidth(int width) {
    m_width = std::max(width, 1);
}

void Viewport::SetLimits(const Limits& limits) {
    m_limits = limits;
    const bool moves = m_isFollowing && m_begin < BeginToEndAt(limits.last);
    if (moves && limits.last > m_latestEnd) m_latestEnd = limits.last + Room();
    m_latestEnd = std::max(m_latestEnd, limits.last);
    Resize(m_wanted);
    Place(moves ? BeginToEndAt(m_latestEnd) : m_begin);
}

double Viewport::Room() const {
    const double recorded = m_limits.last - m_limits.first;
    if (recorded >= m_wanted) return kRoom * m_wanted;
    const double early = std::min(kRoomToGrow * recorded, kMostToGrow);
    return std::min(std::max(kRoom * recorded, early), m_wanted - recorded);
}

double Viewport::EndOfColumn(int column) const {
    constexpr double kTolerance = 1e-9;  // of the length
    return SecondsAt(column + 1) + (column + 1 < m_width ? 0.0 : m_length * kTolerance);
}

void Viewport::ShowLatest(double seconds) {
    m_latestEnd = m_limits.last;
    Resize(seconds);
    MoveToEnd();
}

void Viewport::ShowAll() {
    ShowLatest(std::numeric_limits<double>::infinity());
}

void Viewport::ZoomAbout(double column, double factor, double shortest) {
    const double fixed = SecondsAt(column);
    const double wanted = std::max(m_length * factor, std::min(shortest, m_length));
    // Zoomed out as far as it goes, the view shows what is still to come too.
    Resize(wanted < Longest() ? wanted : std::numeric_limits<double>::infinity());
    Place(fixed - column * m_length / m_width);
}

void Viewport::MoveBy(double columns) {
    Place(SecondsAt(columns));
}

void Viewport::Reveal(double seconds) {
    if (seconds < Begin()) Place(seconds);
    if (seconds > End()) Place(seconds - m_length);
}

void Viewport::MoveToBegin() {
    Place(m_limits.first);
}

void Viewport::MoveToEnd() {
    m_latestEnd = m_limits.last;
    Resize(m_wanted);
    Place(BeginToEndAt(m_latestEnd));
}

void Viewport::Resize(double wanted) {
    m_wanted = std::max(wanted, kShortest);
    m_length = std::min(m_wanted, Longest());
}

void Viewport::Place(double begin) {
    m_begin = std::clamp(begin, m_limits.first, BeginToEndAt(m_latestEnd));
    m_isFollowing = m_begin >= BeginToEndAt(m_limits.last);
}

double Viewport::Longest() const {
    return std::max(m_latestEnd - m_limits.first, kShortest);
}

// As far as samples are kept. Where all of them fit, it is the first one itself and not a rounded difference,
// which might leave that one out.
double Viewport::BeginToEndAt(double seconds) const {
    if (seconds - m_limits.first <= m_length) return m_limits.first;
    return std::max(seconds - m_length, m_limits.first);
}

}  // namespace plotvane
