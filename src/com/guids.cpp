// The numbers of the type library's interfaces and classes.
#include <windows.h>

#include <initguid.h>

#include <twSimpleEditScreens.h>
