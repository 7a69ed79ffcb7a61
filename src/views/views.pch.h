#pragma once

#include <wx/bmpbndl.h>
#include <wx/grid.h>
#include <wx/listctrl.h>
#include <wx/wx.h>
