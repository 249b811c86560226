// Unstructured service data: a small service to talk to.
#include "Commands.h"

#include <array>

namespace AtModem {

namespace {

using Form = Command::Form;

constexpr Agenda::Duration networkTime{200};

/** What the service says to the texts that were sent so far, the last one after a stroke. */
struct Page {
    std::string_view path;
    std::string_view text;
    bool expectsMore;
};

/** A service that never says anything. */
constexpr std::string_view silentService = "*199#";

constexpr std::array<Page, 6> pages = {{
    {"*100#", "Your balance is 12.50 EUR.", false},
    {"*123#", "1 Balance\n2 Offers\n0 End", true},
    {"*123#/1", "Your balance is 12.50 EUR.", false},
    {"*123#/2", "1 Weekend\n2 Abroad\n0 End", true},
    {"*123#/2/1", "The weekend offer is booked.", false},
    {"*123#/2/2", "The offer for abroad is booked.", false},
}};

const Page *findPage(const std::string &path)
{
    for (const Page &page : pages) {
        if (page.path == path)
            return &page;
    }
    return nullptr;
}

/** 0 nothing more is expected, 1 an answer is, 2 the network has ended it. */
void say(Modem &modem, int status, std::string_view text)
{
    constexpr int defaultAlphabet = 15;
    std::string line = "+CUSD: " + std::to_string(status);
    if (!text.empty())
        line += ",\"" + std::string(text) + "\"," + std::to_string(defaultAlphabet);
    modem.tell(line, &Preferences::serviceData);
}

void answerRequest(Modem &modem)
{
    if (!modem.dialogue.open || modem.dialogue.menu == silentService)
        return;
    const Page *const page = findPage(modem.dialogue.menu);
    const bool left = modem.dialogue.menu.size() > 2
        && modem.dialogue.menu.compare(modem.dialogue.menu.size() - 2, 2, "/0") == 0;
    if (page && page->expectsMore) {
        say(modem, 1, page->text);
        return;
    }
    modem.dialogue = {};
    if (page)
        say(modem, 0, page->text);
    else if (left)
        say(modem, 2, "Good bye.");
    else
        say(modem, 0, "This request is not known.");
}

/** +CUSD=<told>[,<text>[,<coding>]]: 0 not told, 1 told, 2 ends the dialogue. */
Answer serviceData(Modem &modem, Session &session, const Command &command)
{
    constexpr int end = 2;
    constexpr std::size_t maxTextLength = 182;
    if (command.form == Form::Read)
        return Answer::line(std::string("+CUSD: ") + (session.preferences.serviceData ? '1' : '0'));
    const auto told = command.number(0, session.preferences.serviceData ? 1 : 0);
    if (command.form != Form::Set || !told || *told > end || command.text(1).size() > maxTextLength)
        return Answer::error(Cme::IncorrectParameters);
    if (*told == end) {
        modem.dialogue = {};
        return Answer::ok();
    }
    session.preferences.serviceData = *told == 1;
    if (!command.has(1))
        return Answer::ok();
    if (!modem.isRegistered())
        return Answer::error(Cme::NoNetworkService);
    ServiceDialogue &dialogue = modem.dialogue;
    dialogue.menu = dialogue.open ? dialogue.menu + '/' + command.text(1) : command.text(1);
    dialogue.open = true;
    modem.agenda().after(networkTime, [&modem] { answerRequest(modem); });
    return Answer::ok();
}

constexpr std::array<CommandEntry, 1> commands = {{
    {"+CUSD", Needs::Nothing, "(0-2)", serviceData},
}};

} // namespace

std::span<const CommandEntry> serviceDataCommands()
{
    return commands;
}

} // namespace AtModem
