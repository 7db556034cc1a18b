#include "draw/close_spline.h"

void CloseSpline(AcDbSpline& spline)
{
    if (spline.hasFitData()) {
        AcDbSpline::FitData fit;
        if (spline.getFitData(fit) == Acad::eOk)
            spline.setClosedFitData(fit);
        return;
    }
    AcDbSpline::NurbsData nurbs;
    if (spline.getNurbsData(nurbs) != Acad::eOk || nurbs.closed)
        return;
    nurbs.closed = true;
    spline.setNurbsData(nurbs);
}
