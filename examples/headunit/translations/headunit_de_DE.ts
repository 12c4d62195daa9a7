<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>Apps</name>
    <message>
        <source>Drive</source>
        <translation>Fahren</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
</context>
<context>
    <name>DriveScreen</name>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Gear</source>
        <translation>Gang</translation>
    </message>
    <message>
        <source>No connection to the vehicle</source>
        <translation>Keine Verbindung zum Fahrzeug</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Reichweite</translation>
    </message>
    <message>
        <source>Trip</source>
        <translation>Tageskilometer</translation>
    </message>
    <message>
        <source>Since start</source>
        <translation>Seit dem Start</translation>
    </message>
    <message>
        <source>Outside</source>
        <translation>Außen</translation>
    </message>
    <message>
        <source>Odometer</source>
        <translation>Kilometerstand</translation>
    </message>
</context>
<context>
    <name>Entry</name>
    <message>
        <source>Locked while driving</source>
        <translation>Während der Fahrt gesperrt</translation>
    </message>
</context>
<context>
    <name>Formats</name>
    <message>
        <source>km/h</source>
        <translation>km/h</translation>
    </message>
    <message>
        <source>mph</source>
        <translation>mph</translation>
    </message>
    <message>
        <source>%1 °C</source>
        <translation>%1 °C</translation>
    </message>
    <message>
        <source>%1 °F</source>
        <translation>%1 °F</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
    <message>
        <source>%1 ft</source>
        <translation>%1 ft</translation>
    </message>
    <message>
        <source>%1 mi</source>
        <translation>%1 mi</translation>
    </message>
</context>
<context>
    <name>InstallationScreen</name>
    <message>
        <source>Head unit</source>
        <translation>Head Unit</translation>
    </message>
    <message>
        <source>An update is being installed</source>
        <translation>Ein Update wird installiert</translation>
    </message>
    <message>
        <source>Installation</source>
        <translation>Installation</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Head unit</source>
        <translation>Head Unit</translation>
    </message>
    <message>
        <source>Not while driving</source>
        <translation>Nicht während der Fahrt</translation>
    </message>
</context>
<context>
    <name>NotificationsScreen</name>
    <message>
        <source>Notifications</source>
        <translation>Meldungen</translation>
    </message>
</context>
<context>
    <name>ProfileRows</name>
    <message>
        <source>Driver %1</source>
        <translation>Fahrer %1</translation>
    </message>
    <message>
        <source>“%1” cannot be added; is there a profile of this name?</source>
        <translation>„%1“ kann nicht angelegt werden; gibt es ein Profil dieses Namens?</translation>
    </message>
    <message>
        <source>The settings are as they were delivered</source>
        <translation>Die Einstellungen sind wie ausgeliefert</translation>
    </message>
    <message>
        <source>Not every setting could be reset</source>
        <translation>Nicht jede Einstellung konnte zurückgesetzt werden</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>New profile</source>
        <translation>Neues Profil</translation>
    </message>
    <message>
        <source>Name of the new profile</source>
        <translation>Name des neuen Profils</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Anlegen</translation>
    </message>
    <message>
        <source>All settings of this profile</source>
        <translation>Alle Einstellungen dieses Profils</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>PushButton</name>
    <message>
        <source>Locked while driving</source>
        <translation>Während der Fahrt gesperrt</translation>
    </message>
</context>
<context>
    <name>Rail</name>
    <message>
        <source>Restricted</source>
        <translation>Eingeschränkt</translation>
    </message>
</context>
<context>
    <name>SettingsScreen</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Distances</source>
        <translation>Entfernungen</translation>
    </message>
    <message>
        <source>Kilometres</source>
        <translation>Kilometer</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Meilen</translation>
    </message>
    <message>
        <source>Temperatures</source>
        <translation>Temperaturen</translation>
    </message>
    <message>
        <source>Celsius</source>
        <translation>Celsius</translation>
    </message>
    <message>
        <source>Fahrenheit</source>
        <translation>Fahrenheit</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>24 hours</source>
        <translation>24 Stunden</translation>
    </message>
    <message>
        <source>12 hours</source>
        <translation>12 Stunden</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Night</source>
        <translation>Nacht</translation>
    </message>
    <message>
        <source>Guidance volume</source>
        <translation>Lautstärke der Ansagen</translation>
    </message>
    <message>
        <source>Mute the guidance</source>
        <translation>Ansagen stummschalten</translation>
    </message>
</context>
<context>
    <name>SystemScreen</name>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
</context>
<context>
    <name>UpdateScreen</name>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
</context>
</TS>
