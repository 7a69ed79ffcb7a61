#pragma once

#include "editing/ZIPCODE.h"
#include "editing/birth_date_field.h"
#include "editing/date_field.h"
#include "editing/field_help.h"
#include "editing/name_search.h"
#include "views/field_group.h"
#include "views/form_dialog.h"

// The one layout of each user control that several fields' screens have.
namespace views {

void LayOut(FieldGroup& group, editing::BirthDateField& field);
void LayOut(FieldGroup& group, editing::DateField& field);
// City, state and ZIP; the list of places drops over the dialog.
void LayOut(FieldGroup& group, editing::ZIPCODE& places);
// Both drop over the dialog.
void LayOut(FormDialog& dialog, editing::NameSearch& search);
void LayOut(FormDialog& dialog, editing::FieldHelp& help);

}  // namespace views
