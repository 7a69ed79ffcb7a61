#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "data/record_binding.h"
#include "forms/label.h"
#include "forms/text_box.h"

namespace people {

// A column, and the position of its field among the screen's.
struct BoundField {
  std::size_t index = 0;
  data::Words column;
  const data::Format& format = data::kPlain;
};

// The columns that the hidden labels `Label5` hold in every screen of a person, by position.
inline constexpr std::array<data::Words, 14> kHiddenColumns = {"pMEDALEUPD", "pTypPat", "pTypDoc", "pTypRef", "pTypPhy",
                                                               "pTypEmp",    "pTypX1",  "pTypX2",  "pBIRDAT", "pREFIND",
                                                               "pFAMHEAIND", "pPROIND", "pPHY1",   "pPHY2"};

// A person's row as the screens of persons edit it. The nickname follows the first name.
class PersonRecord : public data::RecordBinding {
 public:
  PersonRecord(session::Session& session, forms::TextBox& last_name, forms::TextBox& first_name);

  void Bind(std::span<forms::TextBox> boxes, std::span<const BoundField> columns);
  // Hidden from the person.
  void Bind(std::span<forms::Label> labels, std::span<const BoundField> columns);
  // The first labels, to `kHiddenColumns`; and the nickname, which no field shows.
  void BindHidden(std::span<forms::Label> labels);
  using RecordBinding::Bind;

  // Without the blanks around what was typed. What nobody touched keeps its own.
  void Trim();
  // After the first name has changed, and before the row is compared or written.
  void NicknameFollows();
  // After stored values took the place of what was typed: a nickname of somebody else's stays where the name does.
  void ShowTaken();
  bool NicknameChanged() const { return Changed(nickname_); }
  // Throws session::DatabaseError.
  void WriteNickname();
  void SwapNames();
  // "Jane Roe"
  std::string FullName() const;
  bool IsNew() const { return Id() == 0; }

 private:
  data::Statements statements_;
  forms::TextBox& last_name_;
  forms::TextBox& first_name_;
  std::vector<forms::TextBox*> boxes_;
  forms::Label nickname_;
};

}  // namespace people
