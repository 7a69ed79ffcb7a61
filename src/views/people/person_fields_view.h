#pragma once

#include "people/employer_field.h"
#include "people/person_field.h"
#include "people/phone_pair.h"
#include "people/sex_title_field.h"
#include "views/field_group.h"

// The one layout of each user control that the screens of persons share.
namespace views {

void LayOut(FieldGroup& group, people::SexTitleField& field);
void LayOut(FieldGroup& group, people::PhonePair& phones);
void LayOut(FieldGroup& group, people::PersonField& field);
void LayOut(FieldGroup& group, people::EmployerField& employer);

}  // namespace views
