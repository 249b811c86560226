<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CallSetup</name>
    <message>
        <source>The phone does not take this value.</source>
        <translation>Das Telefon nimmt diesen Wert nicht an.</translation>
    </message>
    <message>
        <source>Check what you entered.</source>
        <translation>Prüfen Sie die Eingabe.</translation>
    </message>
    <message>
        <source>The call could not be changed.</source>
        <translation>Das Gespräch konnte nicht geändert werden.</translation>
    </message>
    <message>
        <source>See whether it is still there.</source>
        <translation>Sehen Sie nach, ob es noch da ist.</translation>
    </message>
    <message>
        <source>There is no number to call.</source>
        <translation>Es ist keine Nummer zum Anrufen da.</translation>
    </message>
    <message>
        <source>Enter one first.</source>
        <translation>Geben Sie zuerst eine ein.</translation>
    </message>
    <message>
        <source>This call has ended.</source>
        <translation>Dieses Gespräch ist beendet.</translation>
    </message>
    <message>
        <source>Dial again to talk on.</source>
        <translation>Wählen Sie neu, um weiterzusprechen.</translation>
    </message>
    <message>
        <source>The request was refused.</source>
        <translation>Die Anfrage wurde abgelehnt.</translation>
    </message>
    <message>
        <source>Try again later, or ask your provider.</source>
        <translation>Versuchen Sie es später wieder oder fragen Sie Ihren Anbieter.</translation>
    </message>
    <message>
        <source>The SIM does not answer.</source>
        <translation>Die SIM-Karte antwortet nicht.</translation>
    </message>
    <message>
        <source>Check that it is inserted and unlocked.</source>
        <translation>Prüfen Sie, ob sie eingelegt und entsperrt ist.</translation>
    </message>
    <message>
        <source>The SIM refused the PIN.</source>
        <translation>Die SIM-Karte hat die PIN abgelehnt.</translation>
    </message>
    <message>
        <source>Enter it once more, with care: three wrong ones in a row block it.</source>
        <translation>Geben Sie sie noch einmal ein, mit Bedacht: Drei falsche nacheinander sperren sie.</translation>
    </message>
    <message>
        <source>The SIM has blocked this PIN.</source>
        <translation>Die SIM-Karte hat diese PIN gesperrt.</translation>
    </message>
    <message>
        <source>Unblock it with the PUK that came with the SIM.</source>
        <translation>Entsperren Sie sie mit der PUK, die der SIM-Karte beilag.</translation>
    </message>
    <message>
        <source>This phone or its network does not offer this.</source>
        <translation>Dieses Telefon oder sein Netz bietet das nicht an.</translation>
    </message>
    <message>
        <source>Ask your provider whether it can.</source>
        <translation>Fragen Sie Ihren Anbieter, ob er es kann.</translation>
    </message>
    <message>
        <source>No answer came in time.</source>
        <translation>Es kam rechtzeitig keine Antwort.</translation>
    </message>
    <message>
        <source>Look again in a moment: the change may still take effect.</source>
        <translation>Sehen Sie gleich noch einmal nach: Die Änderung kann noch wirksam werden.</translation>
    </message>
    <message>
        <source>The phone is busy with another request.</source>
        <translation>Das Telefon ist mit einer anderen Anfrage beschäftigt.</translation>
    </message>
    <message>
        <source>Try again in a moment.</source>
        <translation>Versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>The telephony service is not running.</source>
        <translation>Der Telefondienst läuft nicht.</translation>
    </message>
    <message>
        <source>Restart the phone if this lasts.</source>
        <translation>Starten Sie das Telefon neu, wenn das so bleibt.</translation>
    </message>
    <message>
        <source>The modem is off.</source>
        <translation>Das Modem ist aus.</translation>
    </message>
    <message>
        <source>Switch flight mode off first.</source>
        <translation>Schalten Sie zuerst den Flugmodus aus.</translation>
    </message>
    <message>
        <source>The connection to the telephony service was lost.</source>
        <translation>Die Verbindung zum Telefondienst ist abgebrochen.</translation>
    </message>
    <message>
        <source>It is made again when you try again.</source>
        <translation>Beim nächsten Versuch wird sie neu aufgebaut.</translation>
    </message>
    <message>
        <source>This program may not use the telephony service.</source>
        <translation>Dieses Programm darf den Telefondienst nicht benutzen.</translation>
    </message>
    <message>
        <source>Ask who manages the phone.</source>
        <translation>Fragen Sie, wer das Telefon verwaltet.</translation>
    </message>
    <message>
        <source>The SIM asks for the PIN2 before such a change.</source>
        <translation>Die SIM-Karte verlangt vor jeder solchen Änderung die PIN2.</translation>
    </message>
    <message>
        <source>Enter it, and the change is made.</source>
        <translation>Geben Sie sie ein, dann wird die Änderung gemacht.</translation>
    </message>
    <message>
        <source>The setting could not be saved, and the one from before still holds.</source>
        <translation>Die Einstellung konnte nicht gespeichert werden; die vorige gilt weiter.</translation>
    </message>
    <message>
        <source>Try again.</source>
        <translation>Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The disk is full, so nothing was changed.</source>
        <translation>Der Speicher ist voll, darum wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Delete something, then try again.</source>
        <translation>Löschen Sie etwas und versuchen Sie es dann noch einmal.</translation>
    </message>
    <message>
        <source>Settings cannot be changed just now.</source>
        <translation>Einstellungen lassen sich gerade nicht ändern.</translation>
    </message>
    <message>
        <source>Try again when the call has ended.</source>
        <translation>Versuchen Sie es wieder, wenn das Gespräch beendet ist.</translation>
    </message>
    <message>
        <source>The request was cancelled.</source>
        <translation>Die Anfrage wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The request failed (code %1).</source>
        <translation>Die Anfrage ist fehlgeschlagen (Code %1).</translation>
    </message>
    <message>
        <source>Try again later.</source>
        <translation>Versuchen Sie es später wieder.</translation>
    </message>
</context>
</TS>
