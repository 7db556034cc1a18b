#pragma once

#include "description/graphic_props.h"

// Whether a description states a property and does not leave its value open.
template <class T>
bool isGiven(const GraphicProps& props, PropConstraint<T> GraphicProps::*property)
{
    static const GraphicProps kOpen;
    const PropConstraint<T>& stated = props.*property;
    return stated.isGiven() && stated.value != (kOpen.*property).value;
}

inline bool isGiven(const GraphicProps& props, ColorList GraphicProps::*property)
{
    const ColorList& colors = props.*property;
    return !colors.empty() && !colors.front().empty();
}

// The value to draw with, or another where the property is not given.
template <class T>
T givenOr(const GraphicProps& props, PropConstraint<T> GraphicProps::*property, T other)
{
    return isGiven(props, property) ? (props.*property).value : other;
}
