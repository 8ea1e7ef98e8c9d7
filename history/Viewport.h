#pragma once

namespace plotvane {

// The part of the time axis that is in view: which second stands at which pixel column. Columns count from 0
// at the left edge of the plot.
class Viewport {
public:
    // The shortest time that a view shows, in seconds.
    static constexpr double kShortest = 0.01;

    // What there is to look at, in seconds of the recording; `last` is not before `first`.
    struct Limits {
        double first = 0.0;
        double last = 0.0;
    };

    // `width` in pixels, at least 1.
    void SetWidth(int width);

    // Takes the limits as they are now. A view that follows stands still as long as the newest sample is in
    // it, and then moves on by a tenth of its length at once: so most pictures differ from the one before in
    // a few columns only, and can be read. One that shows everything grows in the same way. Any other stays
    // where it is, as far as samples are kept.
    void SetLimits(const Limits& limits);

    double Begin() const { return m_begin; }
    double End() const { return m_begin + m_length; }
    double Length() const { return m_length; }
    int Width() const { return m_width; }

    double SecondsAt(double column) const { return m_begin + column * m_length / m_width; }

    // Where a column ends and the next begins. The last one takes in what stands at the end of the view: a
    // view that follows ends at the newest sample, and rounding must not put that one outside.
    double EndOfColumn(int column) const;

    double ColumnOf(double seconds) const { return (seconds - m_begin) * m_width / m_length; }

    // Whether the newest sample is in view, and the view moves on with it.
    bool IsFollowing() const { return m_isFollowing; }

    // Shows this many seconds and ends at the newest sample; fewer while no more are recorded.
    void ShowLatest(double seconds);

    void ShowAll();

    // Makes the view `factor` times as long (above 0; below 1 zooms in), with the time at that column where
    // it was. Zooming in ends at `shortest` seconds.
    void ZoomAbout(double column, double factor, double shortest);

    // Moves the view by this many pixels, to later times if above 0.
    void MoveBy(double columns);

    // Moves the view no further than it takes to show this time.
    void Reveal(double seconds);

    void MoveToBegin();
    void MoveToEnd();

private:
    void Resize(double wanted);
    void Place(double begin);
    double Longest() const;
    double Room() const;
    double BeginToEndAt(double seconds) const;

    Limits m_limits;
    double m_latestEnd = 0.0;  // of a view: the newest sample, or later, where the next ones will stand
    double m_begin = 0.0;
    double m_length = 1.0;
    double m_wanted = 60.0;  // the length that was asked for; infinite for everything
    int m_width = 1;
    bool m_isFollowing = true;
};

}  // namespace plotvane
