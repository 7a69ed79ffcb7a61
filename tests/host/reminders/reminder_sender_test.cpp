#include "reminders/reminder_sender.h"

#include <gmock/gmock.h>
#include <sodium.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "database/file_path.h"
#include "host/practice/practice_fixture.h"
#include "host/reminders/loopback_server.h"
#include "reminders/outbox.h"
#include "reminders/reminder_settings.h"

namespace {

using session::ReminderMessage;
using test_support::LoopbackServer;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// What a mail server was told.
struct Received {
  std::vector<std::string> commands;
  std::string source;  // of the message, as it was before the dots were doubled
};

std::string Line(std::istream& in) {
  std::string line;
  std::getline(in, line);
  return line.substr(0, line.find('\r'));
}

std::string TakeData(std::istream& in) {
  std::string source;
  for (std::string line = Line(in); in && line != "."; line = Line(in)) {
    source += line.substr(line.starts_with('.') ? 1 : 0) + "\r\n";
  }
  return source;
}

// A mail server that knows one receiver and asks for one password.
void TalkSmtp(LoopbackServer::Stream& stream, Received& received) {
  stream << "220 mail.example ESMTP\r\n" << std::flush;
  for (std::string line = Line(stream); stream; line = Line(stream)) {
    received.commands.push_back(line);
    if (line.starts_with("EHLO")) {
      stream << "250-mail.example\r\n250 AUTH PLAIN\r\n";
    } else if (line == "AUTH PLAIN") {
      stream << "334 \r\n" << std::flush;
      stream << (Line(stream) == "AGFubgBzM2NyZXQ=" ? "235 ok\r\n" : "535 no\r\n");  // \0ann\0s3cret
    } else if (line.starts_with("RCPT")) {
      stream << (line == "RCPT TO:<known@patient.example>" ? "250 ok\r\n" : "550 unknown\r\n");
    } else if (line == "DATA") {
      stream << "354 go on\r\n" << std::flush;
      received.source = TakeData(stream);
      stream << "250 taken\r\n";
    } else if (line == "QUIT") {
      stream << "221 bye\r\n" << std::flush;
      return;
    } else {
      stream << "250 ok\r\n";
    }
    stream << std::flush;
  }
}

std::string DecodedBase64(const std::string& text) {
  std::string bytes(text.size(), '\0');
  std::size_t size = 0;
  EXPECT_EQ(sodium_base642bin(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(), text.data(), text.size(),
                              "", &size, nullptr, sodium_base64_VARIANT_ORIGINAL),
            0);
  return bytes.substr(0, size);
}

std::string DecodedQuoted(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '=') {
      bytes += text[i];
      continue;
    }
    if (text.compare(i + 1, 2, "\r\n") != 0) {
      bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
    }
    i += 2;
  }
  return bytes;
}

// The heads of a message, unfolded, and what follows them.
struct Parsed {
  std::map<std::string, std::string> heads;
  std::string body;

  explicit Parsed(const std::string& source) {
    std::istringstream in(source);
    std::string name;
    for (std::string line = Line(in); !line.empty(); line = Line(in)) {
      EXPECT_LE(line.size(), 78U);
      if (line.front() == ' ') {
        heads[name] += line;
        continue;
      }
      name = line.substr(0, line.find(':'));
      EXPECT_FALSE(heads.contains(name)) << name;
      heads[name] = line.substr(name.size() + 2);
    }
    body = source.substr(source.find("\r\n\r\n") + 4);
  }

  // A head of encoded words.
  std::string Words(const std::string& name) {
    std::string text;
    std::istringstream in(heads[name]);
    for (std::string word; in >> word;) {
      EXPECT_TRUE(word.starts_with("=?UTF-8?B?") && word.ends_with("?=") && word.size() <= 75) << word;
      text += DecodedBase64(word.substr(10, word.size() - 12));
    }
    return text;
  }
  // The decoded part of that type.
  std::string Part(const std::string& type) const {
    const std::size_t at = body.find("Content-Type: text/" + type + "; charset=utf-8\r\n");
    EXPECT_NE(at, std::string::npos);
    const std::size_t start = body.find("\r\n\r\n", at) + 4;
    return DecodedQuoted(body.substr(start, body.find("\r\n--=_", start) - start));
  }
};

class ReminderSending : public testing::Test {
 protected:
  void SetUp() override { std::filesystem::create_directories(folder_); }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  static host::Surroundings In(const std::string& folder) {
    host::Surroundings surroundings = host::StandingStill();
    surroundings.data_folder = folder;
    return surroundings;
  }
  void UseMailServer(int port) {
    settings_.server = "127.0.0.1";
    settings_.port = port;
    settings_.security = host::MailSecurity::None;
    settings_.sender = "desk@practice.example";
    settings_.sender_name = "Bay Dental \"Ü\"";
    host::WriteReminderSettings(session_, settings_);
  }
  bool Mail(const std::string& to, const std::string& text = "<p>Hello</p>", const std::string& subject = "Recall") {
    return sender_.Send({ReminderMessage::Method::Email, to, subject, text});
  }
  bool Text(const std::string& to, const std::string& text) {
    return sender_.Send({ReminderMessage::Method::TextMessage, to, "", text});
  }

  const std::string folder_ =
      std::filesystem::temp_directory_path() / ("reminders" + std::to_string(host::ThisProcess().number));
  host::Practice practice_ = host::CreatePractice("sqlite::memory:");
  host::HostSession session_{practice_, 1, host::LoginRights("ann", true), In(folder_)};
  host::ReminderSender sender_{session_};
  host::ReminderSettings settings_;
  Received received_;
};

TEST_F(ReminderSending, AMailArrivesAsItWasWritten) {
  LoopbackServer server([this](auto& stream) { TalkSmtp(stream, received_); });
  UseMailServer(server.Port());
  const std::string longest(10'000, 'x');
  const std::string html = "<p>Se\u00F1or L\u00F3pez,</p>\r\n<p>.<br>..it is <b>100% time</b> = now \u2603 " + longest +
                           "</p><p>Please <a href=\"https://practice.example/confirm/7\">Click Here</a>.</p>";
  const std::string subject = "'; DROP TABLE \u00FCber\r\nBcc: thief@other.example " + longest;
  ASSERT_TRUE(Mail("known@patient.example", html, subject)) << sender_.Problem();
  server.Stop();

  EXPECT_THAT(received_.commands, testing::ElementsAre("EHLO practice.example", "MAIL FROM:<desk@practice.example>",
                                                       "RCPT TO:<known@patient.example>", "DATA", "QUIT"));
  Parsed mail(received_.source);
  EXPECT_EQ(mail.heads["To"], "<known@patient.example>");
  EXPECT_THAT(mail.heads["From"], testing::EndsWith(" <desk@practice.example>"));
  EXPECT_EQ(mail.Words("Subject"), "'; DROP TABLE \u00FCber Bcc: thief@other.example " + longest);
  EXPECT_FALSE(mail.heads.contains("Bcc"));
  EXPECT_THAT(mail.heads["Message-ID"], testing::MatchesRegex("<[0-9a-f]{32}@practice.example>"));
  EXPECT_THAT(mail.heads["Date"], testing::MatchesRegex("[A-Z][a-z]{2}, [0-9]{2} [A-Z][a-z]{2} 20.. .* \\+0000"));
  EXPECT_EQ(mail.Part("html"), html + "\r\n");
  EXPECT_EQ(mail.Part("plain"), "Se\u00F1or L\u00F3pez,\r\n.\r\n..it is 100% time = now \u2603 " + longest +
                                    "\r\nPlease Click Here (https://practice.example/confirm/7).\r\n");
}

TEST_F(ReminderSending, ALoginIsGivenToTheServer) {
  LoopbackServer server([this](auto& stream) { TalkSmtp(stream, received_); });
  settings_.user = "ann";
  settings_.password = "s3cret";
  UseMailServer(server.Port());
  EXPECT_TRUE(Mail("known@patient.example", "plain, without a tag")) << sender_.Problem();
  EXPECT_THAT(received_.source, HasSubstr("Content-Type: text/plain; charset=utf-8\r\n"));
  EXPECT_THAT(received_.source, Not(HasSubstr("multipart")));
  settings_.password = "wr0ng";
  UseMailServer(server.Port());
  received_.source.clear();
  EXPECT_FALSE(Mail("known@patient.example"));
  EXPECT_THAT(received_.source, IsEmpty());
  EXPECT_THAT(sender_.Problem(), Not(HasSubstr("wr0ng")));
}

TEST_F(ReminderSending, WhatNoServerTakesIsNotSent) {
  LoopbackServer server([this](auto& stream) { TalkSmtp(stream, received_); });
  UseMailServer(server.Port());
  EXPECT_FALSE(Mail("nobody@patient.example"));
  EXPECT_THAT(sender_.Problem(), HasSubstr("550"));
  // Never without the encryption that was asked for.
  for (const auto security : {host::MailSecurity::StartTls, host::MailSecurity::Tls}) {
    settings_.security = security;
    host::WriteReminderSettings(session_, settings_);
    EXPECT_FALSE(Mail("known@patient.example"));
    EXPECT_THAT(sender_.Problem(), Not(IsEmpty()));
  }
  EXPECT_THAT(received_.source, IsEmpty());
  UseMailServer(server.Port());
  server.Stop();
  EXPECT_FALSE(Mail("known@patient.example"));
  EXPECT_THAT(host::Outbox(folder_).List(), IsEmpty());
}

TEST_F(ReminderSending, AServerThatSaysNothingCanBeGivenUp) {
  LoopbackServer server([](auto& stream) { Line(stream); });
  UseMailServer(server.Port());
  session_.Connection().WhileBusy = [](session::Busy) { return true; };
  EXPECT_FALSE(Mail("known@patient.example"));
  EXPECT_EQ(sender_.Problem(), "It was given up.");
}

TEST_F(ReminderSending, NoReceiverBringsLinesOfHisOwn) {
  LoopbackServer server([this](auto& stream) { TalkSmtp(stream, received_); });
  UseMailServer(server.Port());
  for (const std::string to : {"", "a@", "@b", "a@b@c", "a@b\r\nBcc: x@y.example", "a@b>\r\nRCPT TO:<x@y.example",
                               "a b@c", "a@b,c@d", "\u00FC@b.example"}) {
    EXPECT_FALSE(Mail(to)) << to;
  }
  for (const std::string to : {"", "555123456", "55512345678", "555123456\n", "+1555123456"}) {
    EXPECT_FALSE(Text(to, "Hello")) << to;
  }
  server.Stop();
  EXPECT_THAT(received_.commands, IsEmpty());
  EXPECT_THAT(host::Outbox(folder_).List(), IsEmpty());
}

TEST_F(ReminderSending, ATextMessageIsPostedToTheHook) {
  std::string request;
  std::string answer = "204 No Content";
  LoopbackServer server([&](LoopbackServer::Stream& stream) {
    request.clear();
    std::size_t size = 0;
    for (std::string line = Line(stream); !line.empty(); line = Line(stream)) {
      request += line + "\n";
      if (line.starts_with("Content-Length: ")) {
        size = std::stoul(line.substr(16));
      }
    }
    std::string body(size, '\0');
    stream.read(body.data(), static_cast<std::streamsize>(size));
    request += body;
    stream << "HTTP/1.1 " << answer << "\r\nLocation: /elsewhere\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"
           << std::flush;
  });
  settings_.hook = "http://127.0.0.1:" + std::to_string(server.Port()) + "/send?from=desk";
  settings_.token = "t0ken";
  host::WriteReminderSettings(session_, settings_);
  EXPECT_TRUE(Text("5551234567", "\"Hi\" \\ \u2603\r\n")) << sender_.Problem();
  EXPECT_THAT(request, testing::StartsWith("POST /send?from=desk HTTP/1.1\n"));
  EXPECT_THAT(request, HasSubstr("\nAuthorization: Bearer t0ken\n"));
  EXPECT_THAT(request, HasSubstr("\nContent-Type: application/json\n"));
  EXPECT_THAT(request, testing::EndsWith("\n"
                                         R"({"to":"5551234567","text":"\"Hi\" \\ )"
                                         "\u2603"
                                         R"(\u000d\u000a"})"));
  for (const char* refusal : {"500 Broken", "302 Found", "401 Unauthorized"}) {
    answer = refusal;
    EXPECT_FALSE(Text("5551234567", "Hi")) << refusal;
  }
  server.Stop();
  EXPECT_FALSE(Text("5551234567", "Hi"));
}

TEST_F(ReminderSending, WithoutSettingsMessagesWaitInTheOutbox) {
  EXPECT_TRUE(Mail("a@b.example", "<p>First</p>"));
  EXPECT_EQ(sender_.TakeNotice(), "The message waits in the outbox: no mail server is set up yet.");
  EXPECT_TRUE(Mail("c@d.example", "<p>Second</p>"));
  EXPECT_EQ(sender_.TakeNotice(), "");
  std::ofstream(folder_ + "/Outbox/stopped.part") << "half";
  std::filesystem::last_write_time(folder_ + "/Outbox/stopped.part", std::filesystem::file_time_type::min());
  EXPECT_TRUE(Text("5551234567", "Third \u2603"));
  const host::Outbox outbox(folder_);
  const auto entries = outbox.List();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].file, "20261121-140500-002.eml");
  EXPECT_EQ(entries[0].to, "c@d.example");
  EXPECT_TRUE(entries[0].is_email);
  EXPECT_EQ(entries[1].to, "5551234567");
  EXPECT_EQ(entries[1].when, "11-21-2026 14:05");
  EXPECT_EQ(outbox.Read(entries[1].file), "To: 5551234567\r\n\r\nThird \u2603");
  EXPECT_EQ(Parsed(outbox.Read(entries[2].file)).Part("html"), "<p>First</p>\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(outbox.Folder()), {}), 3);
  const auto others = std::filesystem::perms::group_all | std::filesystem::perms::others_all;
  EXPECT_EQ(std::filesystem::status(outbox.Folder() / entries[0].file).permissions() & others,
            std::filesystem::perms::none);
}

#ifndef _WIN32
TEST_F(ReminderSending, ASharedPracticeSharesItsOutbox) {
  const host::Outbox outbox(folder_, host::Access::Group);
  ASSERT_TRUE(outbox.Put(host::kTestClock, ".txt", "Hello"));
  const auto of = [](const std::filesystem::path& path) { return std::filesystem::status(path).permissions(); };
  EXPECT_EQ(of(outbox.Folder()) & std::filesystem::perms(0777), std::filesystem::perms(0770));
  EXPECT_EQ(of(outbox.Folder() / outbox.List().at(0).file), std::filesystem::perms(0660));
}
#endif

TEST_F(ReminderSending, AMessageThatCannotBeWrittenIsNotTaken) {
  std::ofstream(folder_ + "/Outbox") << "a file";
  EXPECT_FALSE(Mail("a@b.example"));
  EXPECT_EQ(sender_.Problem(), "The outbox cannot be written.");
}

TEST_F(ReminderSending, ThePasswordStandsInNoLogAndNoError) {
  settings_.user = "ann";
  settings_.password = "s3cret";
  settings_.token = "t0ken";
  host::WriteReminderSettings(session_, settings_);
  EXPECT_EQ(host::ReadReminderSettings(session_), settings_);
  EXPECT_EQ(
      host::Ask(practice_, "SELECT count(*) FROM ChangeTable WHERE ChaNew LIKE '%s3cret%' OR ChaNew LIKE '%t0ken%'"),
      "0");
  session_.Connection().Execute("ALTER TABLE OfficeSettingTable RENAME TO Gone");
  session_.Connection().Execute("CREATE TABLE OfficeSettingTable (OSID, OSSection, OSKey, OSValue, OfficeID)");
  session_.Connection().Execute(
      "CREATE TRIGGER refusing BEFORE INSERT ON OfficeSettingTable WHEN NEW.OSKey = 'SMTP_PASSWORD' BEGIN SELECT "
      "RAISE(ABORT, 'refused'); END");
  try {
    host::WriteReminderSettings(session_, settings_);
    FAIL() << "it was written";
  } catch (const session::DatabaseError& error) {
    EXPECT_THAT(error.Statement() + error.Told(), Not(HasSubstr("s3cret")));
  }
  EXPECT_EQ(host::ReadReminderSettings(session_), host::ReminderSettings());
}

}  // namespace
