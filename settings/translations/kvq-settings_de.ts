<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AboutPage</name>
    <message>
        <source>This phone</source>
        <translation>Dieses Telefon</translation>
    </message>
    <message>
        <source>IMEI</source>
        <translation>IMEI</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Funk</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>This program</source>
        <translation>Dieses Programm</translation>
    </message>
    <message>
        <source>Call settings</source>
        <translation>Anrufeinstellungen</translation>
    </message>
    <message>
        <source>Telephony</source>
        <translation>Telefondienst</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Modem software</source>
        <translation>Modemsoftware</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>Sound processing</source>
        <translation>Sprachverarbeitung</translation>
    </message>
</context>
<context>
    <name>BusyMark</name>
    <message>
        <source>Please wait</source>
        <translation>Bitte warten</translation>
    </message>
</context>
<context>
    <name>CallCard</name>
    <message>
        <source>Unknown number</source>
        <translation>Unbekannte Nummer</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Halten</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Split off</source>
        <translation>Lösen</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>Vermitteln</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>CallScreen</name>
    <message>
        <source>Calls</source>
        <translation>Gespräche</translation>
    </message>
    <message>
        <source>Call</source>
        <translation>Gespräch</translation>
    </message>
    <message>
        <source>Hanging up …</source>
        <translation>Wird aufgelegt …</translation>
    </message>
    <message>
        <source>Calling …</source>
        <translation>Wird angerufen …</translation>
    </message>
    <message>
        <source>Transfer the call</source>
        <translation>Gespräch weitergeben</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>Weitergeben</translation>
    </message>
    <message>
        <source>Microphone off</source>
        <translation>Mikrofon aus</translation>
    </message>
    <message>
        <source>Swap the two calls</source>
        <translation>Zwischen beiden wechseln</translation>
    </message>
    <message>
        <source>Join them to a conference</source>
        <translation>Zu einer Konferenz verbinden</translation>
    </message>
    <message>
        <source>Add call</source>
        <translation>Weiterer Anruf</translation>
    </message>
    <message>
        <source>End all</source>
        <translation>Alle beenden</translation>
    </message>
    <message>
        <source>Tones sent: %1</source>
        <translation>Gesendete Töne: %1</translation>
    </message>
    <message>
        <source>Hide the keypad</source>
        <translation>Tastenfeld verbergen</translation>
    </message>
    <message>
        <source>Keypad</source>
        <translation>Tastenfeld</translation>
    </message>
    <message>
        <source>Hang up</source>
        <translation>Auflegen</translation>
    </message>
</context>
<context>
    <name>CallSummary</name>
    <message>
        <source>Calling …</source>
        <translation>Wird angerufen …</translation>
    </message>
    <message>
        <source>Incoming call</source>
        <translation>Eingehender Anruf</translation>
    </message>
    <message>
        <source>Active, in the conference</source>
        <translation>Aktiv, in der Konferenz</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>On hold, in the conference</source>
        <translation>Gehalten, in der Konferenz</translation>
    </message>
    <message>
        <source>On hold</source>
        <translation>Gehalten</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>Beendet</translation>
    </message>
</context>
<context>
    <name>CallerIdPage</name>
    <message>
        <source>Show it</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Hide it</source>
        <translation>Verbergen</translation>
    </message>
    <message>
        <source>My number, when I call</source>
        <translation>Meine Nummer, wenn ich anrufe</translation>
    </message>
    <message>
        <source>All calls</source>
        <translation>Alle Anrufe</translation>
    </message>
    <message>
        <source>The next call only</source>
        <translation>Nur der nächste Anruf</translation>
    </message>
    <message>
        <source>A second call</source>
        <translation>Ein zweiter Anruf</translation>
    </message>
    <message>
        <source>Call waiting</source>
        <translation>Anklopfen</translation>
    </message>
    <message>
        <source>A call that comes in during another one is announced</source>
        <translation>Ein Anruf während eines anderen wird gemeldet</translation>
    </message>
    <message>
        <source>Provider’s default</source>
        <translation>Vorgabe des Anbieters</translation>
    </message>
</context>
<context>
    <name>CallsPage</name>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Call</source>
        <translation>Anrufen</translation>
    </message>
    <message>
        <source>The calls cannot be read. %1</source>
        <translation>Die Anrufe sind nicht lesbar. %1</translation>
    </message>
    <message>
        <source>Return to call</source>
        <translation>Zurück zum Gespräch</translation>
    </message>
    <message>
        <source>Add call</source>
        <translation>Weiterer Anruf</translation>
    </message>
    <message>
        <source>Number of the other call</source>
        <translation>Nummer des weiteren Anrufs</translation>
    </message>
    <message>
        <source>Lift the finger to call speed dial %1. Slide it off the key to call nobody.</source>
        <translation>Zum Anrufen von Kurzwahl %1 den Finger heben. Zum Abbrechen von der Taste schieben.</translation>
    </message>
    <message>
        <source>Speed dial %1 is empty.</source>
        <translation>Kurzwahl %1 ist nicht belegt.</translation>
    </message>
    <message>
        <source>The speed dial could not be read yet.</source>
        <translation>Die Kurzwahl konnte noch nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>CostsPage</name>
    <message>
        <source>Costs</source>
        <translation>Kosten</translation>
    </message>
    <message>
        <source>Credit left</source>
        <translation>Guthaben</translation>
    </message>
    <message>
        <source>Spent so far</source>
        <translation>Bisher verbraucht</translation>
    </message>
    <message>
        <source>Reset the costs</source>
        <translation>Kosten zurücksetzen</translation>
    </message>
    <message>
        <source>Reset the costs?</source>
        <translation>Kosten zurücksetzen?</translation>
    </message>
    <message>
        <source>The meter on the SIM starts again at zero.</source>
        <translation>Der Zähler der SIM beginnt wieder bei null.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Limit and price</source>
        <translation>Grenze und Preis</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>At the limit no more calls can be made</source>
        <translation>An der Grenze sind keine Anrufe mehr möglich</translation>
    </message>
    <message>
        <source>Price of a unit</source>
        <translation>Preis einer Einheit</translation>
    </message>
    <message>
        <source>Show costs after a call</source>
        <translation>Kosten nach dem Anruf zeigen</translation>
    </message>
    <message>
        <source>Show costs in</source>
        <translation>Kosten zeigen in</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Time left</source>
        <translation>Verbleibende Zeit</translation>
    </message>
    <message>
        <source>Time of all calls</source>
        <translation>Zeit aller Anrufe</translation>
    </message>
    <message>
        <source>Reset the time</source>
        <translation>Zeit zurücksetzen</translation>
    </message>
    <message>
        <source>Reset the time?</source>
        <translation>Zeit zurücksetzen?</translation>
    </message>
    <message>
        <source>The time of all calls starts again at zero.</source>
        <translation>Die Zeit aller Anrufe beginnt wieder bei null.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Remove the limit</source>
        <translation>Grenze aufheben</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>Enter PIN2</source>
        <translation>PIN2 eingeben</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>PIN2</source>
        <translation>PIN2</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Not known</source>
        <translation>Nicht bekannt</translation>
    </message>
    <message>
        <source>The SIM asks for it before the limit, the price or the costs are changed.</source>
        <translation>Die SIM fragt danach, bevor Limit, Preis oder Kosten geändert werden.</translation>
    </message>
    <message>
        <source>Cost limit</source>
        <translation>Kostenlimit</translation>
    </message>
    <message>
        <source>The limit is %1 now. The SIM keeps it in units, so another price changes it: look at it afterwards.</source>
        <translation>Das Limit ist jetzt %1. Die SIM führt es in Einheiten, ein anderer Preis ändert es also: Prüfen Sie es danach.</translation>
    </message>
</context>
<context>
    <name>Decimal</name>
    <message>
        <source>%1 %2</source>
        <comment>amount and currency</comment>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>DeskWindow</name>
    <message>
        <source>Desk: the simulated phone</source>
        <translation>Werkbank: das simulierte Telefon</translation>
    </message>
    <message>
        <source>DESK</source>
        <translation>WERKBANK</translation>
    </message>
    <message>
        <source>Around the phone, not a part of it.</source>
        <translation>Rund ums Telefon, kein Teil davon.</translation>
    </message>
    <message>
        <source>New phone</source>
        <translation>Neues Telefon</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>Anrufe</translation>
    </message>
    <message>
        <source>Number that calls</source>
        <translation>Nummer, die anruft</translation>
    </message>
    <message>
        <source>Ring</source>
        <translation>Klingeln</translation>
    </message>
    <message>
        <source>Other side answers</source>
        <translation>Gegenseite nimmt ab</translation>
    </message>
    <message>
        <source>Other side hangs up</source>
        <translation>Gegenseite legt auf</translation>
    </message>
    <message>
        <source>Every answer comes</source>
        <translation>Jede Antwort kommt</translation>
    </message>
    <message>
        <source>at once</source>
        <translation>sofort</translation>
    </message>
    <message>
        <source>0.5 s</source>
        <translation>0,5 s</translation>
    </message>
    <message>
        <source>2 s</source>
        <translation>2 s</translation>
    </message>
    <message>
        <source>10 s</source>
        <translation>10 s</translation>
    </message>
    <message>
        <source>Requests end with</source>
        <translation>Anfragen enden mit</translation>
    </message>
    <message>
        <source>Call services</source>
        <translation>Anrufdienste</translation>
    </message>
    <message>
        <source>SIM</source>
        <translation>SIM</translation>
    </message>
    <message>
        <source>Networks</source>
        <translation>Netze</translation>
    </message>
    <message>
        <source>their own</source>
        <translation>eigener</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>timeout</source>
        <translation>Zeitablauf</translation>
    </message>
    <message>
        <source>lacking</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>Disk and SIM</source>
        <translation>Speicher und SIM</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>Der Speicher ist voll</translation>
    </message>
    <message>
        <source>The SIM may not be asked</source>
        <translation>Die SIM darf nicht gefragt werden</translation>
    </message>
    <message>
        <source>The product lacks</source>
        <translation>Dem Gerät fehlt</translation>
    </message>
    <message>
        <source>call forwarding</source>
        <translation>Rufumleitung</translation>
    </message>
    <message>
        <source>caller ID</source>
        <translation>Rufnummernanzeige</translation>
    </message>
    <message>
        <source>call waiting</source>
        <translation>Anklopfen</translation>
    </message>
    <message>
        <source>call costs</source>
        <translation>Anrufkosten</translation>
    </message>
    <message>
        <source>two lines</source>
        <translation>zwei Leitungen</translation>
    </message>
    <message>
        <source>network selection</source>
        <translation>Netzwahl</translation>
    </message>
    <message>
        <source>preferred networks</source>
        <translation>bevorzugte Netze</translation>
    </message>
    <message>
        <source>hyphenation</source>
        <translation>Zifferngruppen</translation>
    </message>
    <message>
        <source>The phone is</source>
        <translation>Das Telefon ist</translation>
    </message>
    <message>
        <source>The platform was asked</source>
        <translation>Die Plattform wurde gefragt</translation>
    </message>
</context>
<context>
    <name>EmptyRow</name>
    <message>
        <source>Nothing here</source>
        <translation>Nichts vorhanden</translation>
    </message>
    <message>
        <source>Reading …</source>
        <translation>Wird gelesen …</translation>
    </message>
    <message>
        <source>Could not be read</source>
        <translation>Nicht lesbar</translation>
    </message>
</context>
<context>
    <name>FailureLine</name>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>Field</name>
    <message>
        <source>Delete the last digit</source>
        <translation>Letzte Ziffer löschen</translation>
    </message>
</context>
<context>
    <name>ForwardingPage</name>
    <message>
        <source>Kind of call</source>
        <translation>Art des Anrufs</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Fax</source>
        <translation>Fax</translation>
    </message>
    <message>
        <source>Forward calls</source>
        <translation>Anrufe umleiten</translation>
    </message>
    <message>
        <source>Forwarding is kept by the network and holds while the phone is off.</source>
        <translation>Umleitungen stehen im Netz und gelten auch bei ausgeschaltetem Telefon.</translation>
    </message>
    <message>
        <source>Always</source>
        <translation>Immer</translation>
    </message>
    <message>
        <source>When busy</source>
        <translation>Wenn besetzt</translation>
    </message>
    <message>
        <source>When not answered</source>
        <translation>Ohne Antwort</translation>
    </message>
    <message>
        <source>When not reachable</source>
        <translation>Nicht erreichbar</translation>
    </message>
    <message>
        <source>Turn off all forwarding of voice calls</source>
        <translation>Alle Umleitungen von Sprachanrufen aufheben</translation>
    </message>
    <message>
        <source>Turn off all forwarding</source>
        <translation>Alle Umleitungen aufheben</translation>
    </message>
    <message>
        <source>Turn off forwarding?</source>
        <translation>Umleitungen aufheben?</translation>
    </message>
    <message>
        <source>The numbers are not kept.</source>
        <translation>Die Nummern gehen verloren.</translation>
    </message>
    <message>
        <source>Turn off</source>
        <translation>Ausschalten</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Turn on</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Forward to</source>
        <translation>Umleiten an</translation>
    </message>
    <message>
        <source>Wait before forwarding</source>
        <translation>Wartezeit vor dem Umleiten</translation>
    </message>
    <message>
        <source>5 s</source>
        <translation>5 s</translation>
    </message>
    <message>
        <source>10 s</source>
        <translation>10 s</translation>
    </message>
    <message>
        <source>20 s</source>
        <translation>20 s</translation>
    </message>
    <message>
        <source>That of voice calls, data and fax. The numbers are not kept.</source>
        <translation>Die von Sprachanrufen, Daten und Fax. Die Nummern gehen verloren.</translation>
    </message>
    <message>
        <source>That of voice calls and data. The numbers are not kept.</source>
        <translation>Die von Sprachanrufen und Daten. Die Nummern gehen verloren.</translation>
    </message>
</context>
<context>
    <name>ForwardingRow</name>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>After %1 seconds</source>
        <translation>Nach %1 Sekunden</translation>
    </message>
    <message>
        <source>Has no effect while “Always” is on</source>
        <translation>Wirkt nicht, solange „Immer“ an ist</translation>
    </message>
</context>
<context>
    <name>Glance</name>
    <message>
        <source>Answers automatically</source>
        <translation>Nimmt Anrufe automatisch an</translation>
    </message>
    <message>
        <source>Number hidden</source>
        <translation>Rufnummer verborgen</translation>
    </message>
    <message>
        <source>Call waiting on</source>
        <translation>Anklopfen ein</translation>
    </message>
    <message>
        <source>Call waiting off</source>
        <translation>Anklopfen aus</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>Leitung %1</translation>
    </message>
    <message>
        <source>chosen by hand</source>
        <translation>von Hand gewählt</translation>
    </message>
    <message>
        <source>Always</source>
        <translation>Immer</translation>
    </message>
    <message>
        <source>When busy</source>
        <translation>Wenn besetzt</translation>
    </message>
    <message>
        <source>When not answered</source>
        <translation>Ohne Antwort</translation>
    </message>
    <message>
        <source>When not reachable</source>
        <translation>Nicht erreichbar</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>%1 of %2 spent</source>
        <translation>%1 von %2 verbraucht</translation>
    </message>
    <message>
        <source>%1 spent</source>
        <translation>%1 verbraucht</translation>
    </message>
    <message>
        <source>PIN blocked</source>
        <translation>PIN gesperrt</translation>
    </message>
    <message>
        <source>PIN asked for</source>
        <translation>PIN wird abgefragt</translation>
    </message>
    <message>
        <source>PIN not asked for</source>
        <translation>PIN wird nicht abgefragt</translation>
    </message>
    <message>
        <source>No SIM</source>
        <translation>Keine SIM</translation>
    </message>
</context>
<context>
    <name>IncomingCall</name>
    <message>
        <source>Incoming call</source>
        <translation>Eingehender Anruf</translation>
    </message>
    <message>
        <source>Unknown number</source>
        <translation>Unbekannte Nummer</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>Annehmen</translation>
    </message>
    <message>
        <source>Reject</source>
        <translation>Ablehnen</translation>
    </message>
    <message>
        <source>Hold and answer</source>
        <translation>Halten und annehmen</translation>
    </message>
</context>
<context>
    <name>LinesPage</name>
    <message>
        <source>The line that calls go out on. Calls come in on both.</source>
        <translation>Über diese Leitung gehen Anrufe hinaus. Herein kommen sie über beide.</translation>
    </message>
    <message>
        <source>Line in use</source>
        <translation>Genutzte Leitung</translation>
    </message>
    <message>
        <source>Line 1</source>
        <translation>Leitung 1</translation>
    </message>
    <message>
        <source>Line 2</source>
        <translation>Leitung 2</translation>
    </message>
    <message>
        <source>Lock the line</source>
        <translation>Leitung sperren</translation>
    </message>
    <message>
        <source>The line in use cannot be changed while it is locked</source>
        <translation>Solange gesperrt, kann die Leitung nicht gewechselt werden</translation>
    </message>
    <message>
        <source>Voice mail of its own</source>
        <translation>Eigene Mailbox</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Call settings</source>
        <translation>Anrufeinstellungen</translation>
    </message>
</context>
<context>
    <name>NetworksPage</name>
    <message>
        <source>In use, home network</source>
        <translation>In Gebrauch, Heimatnetz</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>In Gebrauch</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>Home network</source>
        <translation>Heimatnetz</translation>
    </message>
    <message>
        <source>Available</source>
        <translation>Verfügbar</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Provider</source>
        <translation>Anbieter</translation>
    </message>
    <message>
        <source>Networks around</source>
        <translation>Netze in der Nähe</translation>
    </message>
    <message>
        <source>Stop searching</source>
        <translation>Suche beenden</translation>
    </message>
    <message>
        <source>Search for networks</source>
        <translation>Netze suchen</translation>
    </message>
    <message>
        <source>This may take a minute or two.</source>
        <translation>Das kann ein bis zwei Minuten dauern.</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Funk</translation>
    </message>
    <message>
        <source>Look for a better network</source>
        <translation>Besseres Netz suchen</translation>
    </message>
    <message>
        <source>Rarely, saves power</source>
        <translation>Selten, spart Strom</translation>
    </message>
    <message>
        <source>Now and then</source>
        <translation>Ab und zu</translation>
    </message>
    <message>
        <source>Often</source>
        <translation>Oft</translation>
    </message>
    <message>
        <source>All the time</source>
        <translation>Ständig</translation>
    </message>
    <message>
        <source>Frequency band</source>
        <translation>Frequenzband</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>GSM 900 and 1800</source>
        <translation>GSM 900 und 1800</translation>
    </message>
    <message>
        <source>GSM 850 and 1900</source>
        <translation>GSM 850 und 1900</translation>
    </message>
    <message>
        <source>WCDMA</source>
        <translation>WCDMA</translation>
    </message>
    <message>
        <source>Tone when service comes or goes</source>
        <translation>Ton, wenn das Netz kommt oder geht</translation>
    </message>
    <message>
        <source>The phone chooses the network</source>
        <translation>Das Telefon wählt das Netz</translation>
    </message>
    <message>
        <source>To choose one, turn “Automatic” off.</source>
        <translation>Um eines zu wählen, schalten Sie „Automatisch“ aus.</translation>
    </message>
    <message>
        <source>Leave the home network?</source>
        <translation>Heimatnetz verlassen?</translation>
    </message>
    <message>
        <source>Calls in another network may cost more.</source>
        <translation>In einem anderen Netz können Anrufe mehr kosten.</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Verlassen</translation>
    </message>
</context>
<context>
    <name>NumberPad</name>
    <message>
        <source>Delete the last digit</source>
        <translation>Letzte Ziffer löschen</translation>
    </message>
</context>
<context>
    <name>NumberSheet</name>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
</context>
<context>
    <name>OwnNumbersPage</name>
    <message>
        <source>Own numbers</source>
        <translation>Eigene Nummern</translation>
    </message>
    <message>
        <source>The SIM keeps them for you to look up. They do not change your line.</source>
        <translation>Die SIM bewahrt sie zum Nachsehen auf. An der Leitung ändern sie nichts.</translation>
    </message>
    <message>
        <source>Number %1</source>
        <translation>Nummer %1</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>No numbers</source>
        <translation>Keine Nummern</translation>
    </message>
    <message>
        <source>The SIM has no room for own numbers.</source>
        <translation>Die SIM hat keinen Platz für eigene Nummern.</translation>
    </message>
    <message>
        <source>Accounts of the SIM</source>
        <translation>Konten der SIM</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>In Gebrauch</translation>
    </message>
    <message>
        <source>No accounts</source>
        <translation>Keine Konten</translation>
    </message>
    <message>
        <source>The SIM has a single subscription.</source>
        <translation>Die SIM hat nur einen Vertrag.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>PageDirectory</name>
    <message>
        <source>Calls</source>
        <translation>Anrufe</translation>
    </message>
    <message>
        <source>Call preferences</source>
        <translation>Anrufverhalten</translation>
    </message>
    <message>
        <source>Speed dial</source>
        <translation>Kurzwahl</translation>
    </message>
    <message>
        <source>Video calls</source>
        <translation>Videoanrufe</translation>
    </message>
    <message>
        <source>Call forwarding</source>
        <translation>Rufumleitung</translation>
    </message>
    <message>
        <source>Caller ID and waiting</source>
        <translation>Anzeige und Anklopfen</translation>
    </message>
    <message>
        <source>Call costs</source>
        <translation>Anrufkosten</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Leitungen</translation>
    </message>
    <message>
        <source>SIM security</source>
        <translation>SIM-Sicherheit</translation>
    </message>
    <message>
        <source>Own numbers and accounts</source>
        <translation>Eigene Nummern und Konten</translation>
    </message>
    <message>
        <source>Network selection</source>
        <translation>Netzwahl</translation>
    </message>
    <message>
        <source>Preferred networks</source>
        <translation>Bevorzugte Netze</translation>
    </message>
    <message>
        <source>About the phone</source>
        <translation>Über das Telefon</translation>
    </message>
    <message>
        <source>Network services</source>
        <translation>Netzdienste</translation>
    </message>
    <message>
        <source>SIM card</source>
        <translation>SIM-Karte</translation>
    </message>
    <message>
        <source>Network and phone</source>
        <translation>Netz und Telefon</translation>
    </message>
</context>
<context>
    <name>PageHeader</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>PageList</name>
    <message>
        <source>Call settings</source>
        <translation>Anrufeinstellungen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
</context>
<context>
    <name>PinActions</name>
    <message>
        <source>The SIM took it.</source>
        <translation>Von der SIM angenommen.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Changed.</source>
        <translation>Geändert.</translation>
    </message>
    <message>
        <source>Unblock</source>
        <translation>Entsperren</translation>
    </message>
    <message>
        <source>Unblocked. Use the new PIN from now on.</source>
        <translation>Entsperrt. Ab jetzt gilt die neue PIN.</translation>
    </message>
    <message>
        <source>The PUK came with the SIM. After ten wrong PUKs the SIM can no longer be used.</source>
        <translation>Die PUK lag der SIM bei. Nach zehn falschen PUKs ist die SIM unbrauchbar.</translation>
    </message>
</context>
<context>
    <name>PinRow</name>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>PinSheet</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>The two entries are not the same. Enter the new PIN once more.</source>
        <translation>Die Eingaben sind verschieden. Geben Sie die neue PIN noch einmal ein.</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
</context>
<context>
    <name>PreferencesPage</name>
    <message>
        <source>Answering</source>
        <translation>Annehmen</translation>
    </message>
    <message>
        <source>Answer with any key</source>
        <translation>Mit jeder Taste annehmen</translation>
    </message>
    <message>
        <source>Answer automatically</source>
        <translation>Automatisch annehmen</translation>
    </message>
    <message>
        <source>Without touching the phone</source>
        <translation>Ohne das Telefon zu berühren</translation>
    </message>
    <message>
        <source>Dialling</source>
        <translation>Wählen</translation>
    </message>
    <message>
        <source>Redial automatically</source>
        <translation>Von selbst neu wählen</translation>
    </message>
    <message>
        <source>When the line is busy</source>
        <translation>Wenn besetzt ist</translation>
    </message>
    <message>
        <source>Add the national prefix</source>
        <translation>Nationale Vorwahl ergänzen</translation>
    </message>
    <message>
        <source>Puts %1 before a number</source>
        <translation>Stellt der Nummer %1 voran</translation>
    </message>
    <message>
        <source>Group the digits of numbers</source>
        <translation>Ziffern gruppieren</translation>
    </message>
    <message>
        <source>Keypad tones in a call</source>
        <translation>Tastentöne im Gespräch</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kurz</translation>
    </message>
    <message>
        <source>As long as the key is pressed</source>
        <translation>So lange wie gedrückt</translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Remind of missed calls</source>
        <translation>An verpasste Anrufe erinnern</translation>
    </message>
    <message>
        <source>Message alert during a call</source>
        <translation>Nachrichtenton im Gespräch</translation>
    </message>
    <message>
        <source>Alert when roaming</source>
        <translation>Hinweis in fremden Netzen</translation>
    </message>
    <message>
        <source>Before a call that may cost more</source>
        <translation>Vor Anrufen, die mehr kosten können</translation>
    </message>
    <message>
        <source>Tone when a call drops</source>
        <translation>Ton bei Abbruch</translation>
    </message>
    <message>
        <source>Tone during a call</source>
        <translation>Ton im Gespräch</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Every 30 seconds</source>
        <translation>Alle 30 Sekunden</translation>
    </message>
    <message>
        <source>Every minute</source>
        <translation>Jede Minute</translation>
    </message>
    <message>
        <source>Every 5 minutes</source>
        <translation>Alle 5 Minuten</translation>
    </message>
    <message>
        <source>Hearing</source>
        <translation>Hören</translation>
    </message>
    <message>
        <source>Hearing aid</source>
        <translation>Hörgerät</translation>
    </message>
    <message>
        <source>Couples the sound into a hearing aid</source>
        <translation>Überträgt den Ton in ein Hörgerät</translation>
    </message>
    <message>
        <source>Text telephone</source>
        <translation>Schreibtelefon</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Ganz</translation>
    </message>
    <message>
        <source>Type, and hear</source>
        <translation>Schreiben und hören</translation>
    </message>
    <message>
        <source>Speak, and read</source>
        <translation>Sprechen und lesen</translation>
    </message>
    <message>
        <source>Search names</source>
        <translation>Namen suchen</translation>
    </message>
    <message>
        <source>From the beginning</source>
        <translation>Am Anfang</translation>
    </message>
    <message>
        <source>Anywhere in them</source>
        <translation>Überall darin</translation>
    </message>
    <message>
        <source>Answer by opening the phone</source>
        <translation>Durch Aufklappen annehmen</translation>
    </message>
</context>
<context>
    <name>PreferredPage</name>
    <message>
        <source>Tried first to last</source>
        <translation>In dieser Reihenfolge</translation>
    </message>
    <message>
        <source>Drag a network by its handle to move it. With a keyboard: Control and an arrow key on the handle.</source>
        <translation>Am Griff lässt sich ein Netz verschieben. Mit Tastatur: Strg und Pfeiltaste auf dem Griff.</translation>
    </message>
    <message>
        <source>No preferred networks</source>
        <translation>Keine bevorzugten Netze</translation>
    </message>
    <message>
        <source>The phone takes the strongest network that it may use.</source>
        <translation>Das Telefon nimmt das stärkste Netz, das es nutzen darf.</translation>
    </message>
    <message>
        <source>Read again</source>
        <translation>Neu lesen</translation>
    </message>
    <message>
        <source>%1 of %2 places on the SIM are taken.</source>
        <translation>%1 von %2 Plätzen der SIM sind belegt.</translation>
    </message>
    <message>
        <source>Add a network</source>
        <translation>Netz hinzufügen</translation>
    </message>
    <message>
        <source>Remove all</source>
        <translation>Alle entfernen</translation>
    </message>
    <message>
        <source>Remove all?</source>
        <translation>Alle entfernen?</translation>
    </message>
    <message>
        <source>The list on the SIM is then empty.</source>
        <translation>Die Liste der SIM ist dann leer.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Country code and network code, five or six digits.</source>
        <translation>Landes- und Netzkennung, fünf oder sechs Ziffern.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Network code</source>
        <translation>Netzkennung</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>%1 is removed.</source>
        <translation>%1 ist entfernt.</translation>
    </message>
    <message>
        <source>Another one, by its code</source>
        <translation>Ein anderes nach Kennung</translation>
    </message>
</context>
<context>
    <name>PreferredRow</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Place %1. Control and an arrow key move it.</source>
        <translation>Platz %1. Strg und Pfeiltaste verschieben.</translation>
    </message>
</context>
<context>
    <name>ReturnBar</name>
    <message>
        <source>%1 calls</source>
        <translation>%1 Gespräche</translation>
    </message>
    <message>
        <source>Unknown number</source>
        <translation>Unbekannte Nummer</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Return to call</source>
        <translation>Zurück zum Gespräch</translation>
    </message>
</context>
<context>
    <name>SecurityPage</name>
    <message>
        <source>Entered</source>
        <translation>Eingegeben</translation>
    </message>
    <message>
        <source>Not entered</source>
        <translation>Nicht eingegeben</translation>
    </message>
    <message>
        <source>Blocked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>Nicht genutzt</translation>
    </message>
    <message>
        <source>SIM PIN</source>
        <translation>SIM-PIN</translation>
    </message>
    <message>
        <source>PIN</source>
        <translation>PIN</translation>
    </message>
    <message>
        <source>Turn on</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Old PIN</source>
        <translation>Alte PIN</translation>
    </message>
    <message>
        <source>New PIN</source>
        <translation>Neue PIN</translation>
    </message>
    <message>
        <source>New PIN again</source>
        <translation>Neue PIN wiederholen</translation>
    </message>
    <message>
        <source>PUK</source>
        <translation>PUK</translation>
    </message>
    <message>
        <source>PIN2</source>
        <translation>PIN2</translation>
    </message>
    <message>
        <source>For the limit of costs and for fixed dialling.</source>
        <translation>Für die Kostengrenze und feste Nummern.</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Old PIN2</source>
        <translation>Alte PIN2</translation>
    </message>
    <message>
        <source>New PIN2</source>
        <translation>Neue PIN2</translation>
    </message>
    <message>
        <source>New PIN2 again</source>
        <translation>Neue PIN2 wiederholen</translation>
    </message>
    <message>
        <source>PUK2</source>
        <translation>PUK2</translation>
    </message>
    <message>
        <source>Universal PIN</source>
        <translation>Universal-PIN</translation>
    </message>
    <message>
        <source>Fixed dialling</source>
        <translation>Feste Nummern</translation>
    </message>
    <message>
        <source>Only numbers on the SIM’s list</source>
        <translation>Nur Nummern der SIM-Liste</translation>
    </message>
    <message>
        <source>Other numbers cannot be called. Asks for the PIN2.</source>
        <translation>Andere sind nicht anrufbar. Fragt nach der PIN2.</translation>
    </message>
    <message>
        <source>Turn off</source>
        <translation>Ausschalten</translation>
    </message>
    <message>
        <source>Enter PIN</source>
        <translation>PIN eingeben</translation>
    </message>
    <message>
        <source>Change PIN</source>
        <translation>PIN ändern</translation>
    </message>
    <message>
        <source>Unblock PIN</source>
        <translation>PIN entsperren</translation>
    </message>
    <message>
        <source>Enter PIN2</source>
        <translation>PIN2 eingeben</translation>
    </message>
    <message>
        <source>Change PIN2</source>
        <translation>PIN2 ändern</translation>
    </message>
    <message>
        <source>Unblock PIN2</source>
        <translation>PIN2 entsperren</translation>
    </message>
    <message>
        <source>Enter universal PIN</source>
        <translation>Universal-PIN eingeben</translation>
    </message>
    <message>
        <source>Change universal PIN</source>
        <translation>Universal-PIN ändern</translation>
    </message>
    <message>
        <source>Unblock universal PIN</source>
        <translation>Universal-PIN entsperren</translation>
    </message>
    <message>
        <source>Lock SIM with PIN</source>
        <translation>SIM mit PIN sperren</translation>
    </message>
    <message>
        <source>Asks when the phone starts. It cannot be turned off here: the telephony service offers no way.</source>
        <translation>Fragt beim Start des Telefons. Lässt sich hier nicht ausschalten: Der Telefondienst bietet es nicht an.</translation>
    </message>
    <message>
        <source>Asks when the phone starts</source>
        <translation>Fragt beim Start des Telefons</translation>
    </message>
</context>
<context>
    <name>ServiceWords</name>
    <message>
        <source>Number of this device (IMEI)</source>
        <translation>Nummer dieses Geräts (IMEI)</translation>
    </message>
    <message>
        <source>Call forwarding</source>
        <translation>Rufumleitung</translation>
    </message>
    <message>
        <source>Call waiting</source>
        <translation>Anklopfen</translation>
    </message>
    <message>
        <source>Your number in your calls</source>
        <translation>Eigene Nummer bei Anrufen</translation>
    </message>
    <message>
        <source>PIN2</source>
        <translation>PIN2</translation>
    </message>
    <message>
        <source>PIN</source>
        <translation>PIN</translation>
    </message>
    <message>
        <source>Service request</source>
        <translation>Dienstanfrage</translation>
    </message>
    <message>
        <source>%1, %2: %3</source>
        <translation>%1, %2: %3</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>zu %1</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>All forwarding is off.</source>
        <translation>Alle Umleitungen sind aus.</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Verborgen</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>The provider decides</source>
        <translation>Der Anbieter entscheidet</translation>
    </message>
    <message>
        <source>Unblocked, and the new PIN is set.</source>
        <translation>Entsperrt, und die neue PIN gilt.</translation>
    </message>
    <message>
        <source>Changed.</source>
        <translation>Geändert.</translation>
    </message>
    <message>
        <source>Sent. The answer comes from the network, and the phone shows it.</source>
        <translation>Gesendet. Die Antwort kommt vom Netz, und das Telefon zeigt sie.</translation>
    </message>
    <message>
        <source>A PIN is missing, or the new one was not the same both times. Nothing was changed.</source>
        <translation>Eine PIN fehlt, oder die neue war nicht beide Male dieselbe. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>Nobody knows this code. Look whether it is typed as your provider wrote it.</source>
        <translation>Diesen Code kennt niemand. Prüfen Sie, ob er so getippt ist, wie ihn der Anbieter schrieb.</translation>
    </message>
    <message>
        <source>Voice calls</source>
        <translation>Sprachanrufe</translation>
    </message>
    <message>
        <source>Data calls</source>
        <translation>Datenanrufe</translation>
    </message>
    <message>
        <source>Fax calls</source>
        <translation>Faxanrufe</translation>
    </message>
    <message>
        <source>when busy</source>
        <translation>wenn besetzt</translation>
    </message>
    <message>
        <source>when not answered</source>
        <translation>wenn niemand abnimmt</translation>
    </message>
    <message>
        <source>when not reachable</source>
        <translation>wenn nicht erreichbar</translation>
    </message>
    <message>
        <source>always</source>
        <translation>immer</translation>
    </message>
</context>
<context>
    <name>SettingRow</name>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>last known: %1</source>
        <translation>zuletzt bekannt: %1</translation>
    </message>
</context>
<context>
    <name>SettingValue</name>
    <message>
        <source>none</source>
        <translation>keine Angabe</translation>
    </message>
</context>
<context>
    <name>Sheet</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>SpeedDialPage</name>
    <message>
        <source>Key %1</source>
        <translation>Taste %1</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>The one-touch number %1 goes first</source>
        <translation>Die Direktwahl %1 geht vor</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>SIM</source>
        <translation>SIM</translation>
    </message>
    <message>
        <source>Also kept on the phone</source>
        <translation>Auch auf dem Telefon</translation>
    </message>
    <message>
        <source>Also kept on the SIM</source>
        <translation>Auch auf der SIM</translation>
    </message>
    <message>
        <source>A copy on</source>
        <translation>Kopie auf</translation>
    </message>
    <message>
        <source>No copy</source>
        <translation>Keine</translation>
    </message>
</context>
<context>
    <name>SwitchRow</name>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
</context>
<context>
    <name>VideoPage</name>
    <message>
        <source>No picture</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>The phone’s picture</source>
        <translation>Bild des Telefons</translation>
    </message>
    <message>
        <source>Starting a video call</source>
        <translation>Beginn eines Videoanrufs</translation>
    </message>
    <message>
        <source>Start with the camera off</source>
        <translation>Mit Kamera aus beginnen</translation>
    </message>
    <message>
        <source>Fall back to a voice call</source>
        <translation>Ersatzweise Sprachanruf</translation>
    </message>
    <message>
        <source>When the video call cannot be made</source>
        <translation>Wenn kein Videoanruf möglich ist</translation>
    </message>
    <message>
        <source>Tell when video is possible</source>
        <translation>Auf Video hinweisen</translation>
    </message>
    <message>
        <source>During a voice call</source>
        <translation>Während eines Sprachanrufs</translation>
    </message>
    <message>
        <source>In place of the camera</source>
        <translation>Anstelle der Kamera</translation>
    </message>
    <message>
        <source>What the other side sees while your camera is off.</source>
        <translation>Das sieht die Gegenseite bei ausgeschalteter Kamera.</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Another file …</source>
        <translation>Andere Datei …</translation>
    </message>
    <message>
        <source>Picture file</source>
        <translation>Bilddatei</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Path of the picture</source>
        <translation>Pfad des Bildes</translation>
    </message>
</context>
<context>
    <name>Words</name>
    <message>
        <source>The SIM refused the PIN. At most two tries are left. Enter it with care.</source>
        <translation>Die SIM hat die PIN abgelehnt. Höchstens zwei Versuche bleiben. Geben Sie sie mit Bedacht ein.</translation>
    </message>
    <message>
        <source>The SIM refused the PIN. At most one try is left, then it is blocked. Enter it with care.</source>
        <translation>Die SIM hat die PIN abgelehnt. Höchstens ein Versuch bleibt, dann ist sie gesperrt. Geben Sie sie mit Bedacht ein.</translation>
    </message>
    <message>
        <source>This PUK is wrong. At most %1 of 10 tries are left, then the SIM can no longer be used.</source>
        <translation>Diese PUK ist falsch. Höchstens %1 von 10 Versuchen bleiben, dann ist die SIM unbrauchbar.</translation>
    </message>
    <message>
        <source>This PUK is wrong. Ten wrong PUKs in a row, and the SIM can no longer be used.</source>
        <translation>Diese PUK ist falsch. Nach zehn falschen PUKs in Folge ist die SIM unbrauchbar.</translation>
    </message>
    <message>
        <source>The SIM can no longer be used: it takes no more PUK. Ask your provider for another SIM.</source>
        <translation>Die SIM ist unbrauchbar: Sie nimmt keine PUK mehr an. Fragen Sie Ihren Anbieter nach einer anderen SIM.</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>what happened, what to do</comment>
        <translation>%1 %2</translation>
    </message>
</context>
</TS>
