#pragma once

#include <wx/colour.h>

// How far two colours are apart, from 1 for the same to 21 for black and white; text is read well from 4.5 on.
double Contrast(const wxColour& one, const wxColour& other);
