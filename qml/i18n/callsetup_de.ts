<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CallSetup</name>
    <message>
        <source>The phone cannot work with this value.</source>
        <translation>Mit diesem Wert kann das Telefon nichts anfangen.</translation>
    </message>
    <message>
        <source>The push-to-talk service refused the request.</source>
        <translation>Der Sprechfunkdienst hat die Anfrage abgelehnt.</translation>
    </message>
    <message>
        <source>There is no number to call.</source>
        <translation>Es ist keine Nummer zum Anrufen da.</translation>
    </message>
    <message>
        <source>This call has ended.</source>
        <translation>Dieses Gespräch ist beendet.</translation>
    </message>
    <message>
        <source>The request was refused.</source>
        <translation>Die Anfrage wurde abgelehnt.</translation>
    </message>
    <message>
        <source>The SIM cannot be used just now.</source>
        <translation>Die SIM-Karte ist gerade nicht verfügbar.</translation>
    </message>
    <message>
        <source>The SIM refused the PIN.</source>
        <translation>Die SIM-Karte hat die PIN abgelehnt.</translation>
    </message>
    <message>
        <source>The SIM refused the PIN for the last time. It is blocked now.</source>
        <translation>Die SIM-Karte hat die PIN zum letzten Mal abgelehnt. Sie ist jetzt gesperrt.</translation>
    </message>
    <message>
        <source>The SIM wants the PIN2 first.</source>
        <translation>Die SIM-Karte verlangt zuerst die PIN2.</translation>
    </message>
    <message>
        <source>This phone or its network does not offer this.</source>
        <translation>Dieses Telefon oder sein Netz bietet das nicht an.</translation>
    </message>
    <message>
        <source>No answer came in time. It may still take effect.</source>
        <translation>Es kam nicht rechtzeitig eine Antwort. Die Anfrage kann noch wirksam werden.</translation>
    </message>
    <message>
        <source>The phone is busy with another request.</source>
        <translation>Das Telefon ist mit einer anderen Anfrage beschäftigt.</translation>
    </message>
    <message>
        <source>The telephony service is not running.</source>
        <translation>Der Telefondienst läuft nicht.</translation>
    </message>
    <message>
        <source>The phone is offline.</source>
        <translation>Das Telefon ist offline.</translation>
    </message>
    <message>
        <source>The connection to the telephony service was lost.</source>
        <translation>Die Verbindung zum Telefondienst ist abgebrochen.</translation>
    </message>
    <message>
        <source>This application may not use the telephony service.</source>
        <translation>Diese Anwendung darf den Telefondienst nicht benutzen.</translation>
    </message>
    <message>
        <source>The setting could not be saved.</source>
        <translation>Die Einstellung konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>The setting could not be saved: the storage is full.</source>
        <translation>Die Einstellung konnte nicht gespeichert werden: Der Speicher ist voll.</translation>
    </message>
    <message>
        <source>Settings cannot be changed just now.</source>
        <translation>Einstellungen können gerade nicht geändert werden.</translation>
    </message>
    <message>
        <source>The request was cancelled.</source>
        <translation>Die Anfrage wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The request failed (code %1).</source>
        <translation>Die Anfrage ist fehlgeschlagen (Code %1).</translation>
    </message>
</context>
</TS>
