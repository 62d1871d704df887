// What the core asks of whoever shows it: message boxes, yes/no questions and
// the start of another program. The desktop program supplies Qt dialogs, the
// batch tool answers from the command line, tests script the answers.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace kv {

enum class MessageIcon { Information, Question, Error, Warning };

struct UserInterface {
    // A message box: title (product name and version as a rule), text, icon.
    std::function<void(const std::string& title, const std::string& text, MessageIcon icon)> message;
    // A Yes/No question; true is Yes.
    std::function<bool(const std::string& title, const std::string& text)> askYesNo;
    // Start a program with a visible window in its working directory and
    // return at once. False when it could not be started.
    std::function<bool(const std::filesystem::path& program, const std::filesystem::path& workDir)> startDetached;

    void Message(const std::string& title, const std::string& text,
                 MessageIcon icon = MessageIcon::Information) const {
        if (message) message(title, text, icon);
    }
    // Without a UI every question is answered No: nothing gets overwritten.
    bool AskYesNo(const std::string& title, const std::string& text) const {
        return askYesNo ? askYesNo(title, text) : false;
    }
    bool StartDetached(const std::filesystem::path& program, const std::filesystem::path& workDir) const {
        return startDetached ? startDetached(program, workDir) : false;
    }
};

}  // namespace kv
