#pragma once

#include <array>
#include <cmath>
#include <span>
#include <vector>

#include "host/geom/point.h"

// Searches that arcs and splines share.
namespace host {

// Where `f` changes its sign between two places; the nearer end where it does not.
template <class Function> double signChange(Function f, double low, double high)
{
    const bool rising = f(low) < f(high);
    for (int i = 0; i < 64; ++i) {
        const double middle = 0.5 * (low + high);
        if (middle <= low || middle >= high)
            break;
        ((f(middle) < 0.0) == rising ? low : high) = middle;
    }
    return 0.5 * (low + high);
}

// The integral to about twelve digits of `scale`.
template <class Function>
double integral(Function f, double from, double to, double scale, int depth = 24)
{
    static constexpr std::array<std::array<double, 2>, 5> kGauss{{
        {0.0, 128.0 / 225.0},
        {0.5384693101056831, 0.4786286704993665},
        {-0.5384693101056831, 0.4786286704993665},
        {0.9061798459386640, 0.2369268850561891},
        {-0.9061798459386640, 0.2369268850561891},
    }};
    const auto piece = [&](double a, double b) {
        double sum = 0.0;
        for (const auto& [place, weight] : kGauss)
            sum += weight * f(0.5 * (a + b) + 0.5 * (b - a) * place);
        return 0.5 * (b - a) * sum;
    };
    const double middle = 0.5 * (from + to);
    const double whole = piece(from, to);
    const double halves = piece(from, middle) + piece(middle, to);
    if (depth == 0 || !(std::abs(whole - halves) > 1e-12 * scale))
        return halves;
    return integral(f, from, middle, scale, depth - 1) + integral(f, middle, to, scale, depth - 1);
}

// The parameter of a curve nearest to a point: every sample that is nearer than its neighbours is
// refined, so the samples need only be dense enough to show each valley. Not empty.
template <class Curve>
double closestParameterAmong(const Curve& curve, std::span<const double> samples,
                             const AcGePoint3d& to)
{
    const auto distance = [&](double t) { return curve.pointAt(t).distanceTo(to); };
    const auto slope = [&](double t) {
        return (curve.pointAt(t) - to).dotProduct(curve.tangentAt(t));
    };

    double best = samples[0];
    double bestDistance = distance(best);
    const auto consider = [&](double t) {
        const double d = distance(t);
        if (d < bestDistance) {
            best = t;
            bestDistance = d;
        }
    };
    std::vector<double> distances;
    for (const double t : samples)
        distances.push_back(distance(t));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::size_t before = i == 0 ? 0 : i - 1;
        const std::size_t after = i + 1 == samples.size() ? i : i + 1;
        if (distances[i] > distances[before] || distances[i] > distances[after])
            continue;
        consider(samples[i]);
        consider(signChange(slope, samples[before], samples[after]));
    }
    return best;
}

} // namespace host
