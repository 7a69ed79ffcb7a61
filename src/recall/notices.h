#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string>

namespace recall {

// The ways in which a stage of a recall is sent.
enum class Notice : std::size_t { Letter, PostCard, TextMessage, Email, Voice, VoiceSpanish };

inline constexpr std::array kNotices = {Notice::Letter, Notice::PostCard, Notice::TextMessage,
                                        Notice::Email,  Notice::Voice,    Notice::VoiceSpanish};

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
  // By `Notice`: the person has removed what the practice wrote, and a generic message takes its place.
  std::bitset<kNotices.size()> emptied = {};

  const std::string& operator[](Notice notice) const {
    const std::array kept = {&letter, &postcard, &text_message, &email, &voice, &voice_spanish};
    return *kept.at(static_cast<std::size_t>(notice));
  }
  std::string& operator[](Notice notice) {
    return const_cast<std::string&>(static_cast<const Notices&>(*this)[notice]);
  }

  friend bool operator==(const Notices&, const Notices&) = default;
};

// What is stored of them: generic messages in the place of those that the person has removed.
Notices Completed(Notices notices);

}  // namespace recall
