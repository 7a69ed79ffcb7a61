#pragma once

#include <wx/richtext/richtextbuffer.h>

#include "forms/rich_text.h"

namespace views {

// What the widget holds, in the formats that a text may have, and back.
forms::RichText ReadBuffer(const wxRichTextBuffer& buffer);
void FillBuffer(wxRichTextBuffer& buffer, const forms::RichText& text);

// How the paragraphs of a list look, or those of none.
wxRichTextAttr ListLook(bool bullet);
bool IsListLook(const wxRichTextAttr& look);

}  // namespace views
