#pragma once

// How near two directions, and two places, count as the same. `equalVector` has no unit,
// `equalPoint` is in drawing units.
class AcGeTol {
public:
    constexpr AcGeTol() = default;
    constexpr AcGeTol(double equalPoint, double equalVector)
        : equalPoint_(equalPoint), equalVector_(equalVector)
    {
    }

    constexpr double equalPoint() const { return equalPoint_; }
    constexpr double equalVector() const { return equalVector_; }
    void setEqualPoint(double value) { equalPoint_ = value; }
    void setEqualVector(double value) { equalVector_ = value; }

private:
    double equalPoint_ = 1e-10;
    double equalVector_ = 1e-12;
};

// The tolerance used where a caller gives none.
struct AcGeContext {
    static constexpr AcGeTol gTol{};
};
