#pragma once

#include <string>

namespace recall {

// What a stage of a recall sends, by the method it is sent by.
struct Notices {
  std::string letter;         // file below the data folder's "WP"; '\' separates its folders
  std::string postcard;       // HTML
  std::string text_message;   // plain
  std::string email;          // HTML
  std::string voice;          // plain
  std::string voice_spanish;  // plain
  std::string text_reply;     // sent back to who answers a text message
  std::string email_reply;    // sent back to who answers an e-mail

  friend bool operator==(const Notices&, const Notices&) = default;
};

}  // namespace recall
