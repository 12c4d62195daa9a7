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
    <name>ErrorReportRow</name>
    <message>
        <source>unreadable report</source>
        <translation>unlesbarer Bericht</translation>
    </message>
</context>
<context>
    <name>ErrorReportsPage</name>
    <message>
        <source>%1 of %2 reports could not be exported</source>
        <translation>%1 von %2 Berichten konnten nicht exportiert werden</translation>
    </message>
    <message>
        <source>Exported reports: %1</source>
        <translation>Exportierte Berichte: %1</translation>
    </message>
    <message>
        <source>%1 of %2 reports could not be deleted</source>
        <translation>%1 von %2 Berichten konnten nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Deleted reports: %1</source>
        <translation>Gelöschte Berichte: %1</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Select none</source>
        <translation>Keine auswählen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete the selected reports (%1)?</source>
        <translation>Ausgewählte Berichte (%1) löschen?</translation>
    </message>
    <message>
        <source>Yes, delete</source>
        <translation>Ja, löschen</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>There are no error reports</source>
        <translation>Es gibt keine Fehlerberichte</translation>
    </message>
    <message>
        <source>Error reports</source>
        <translation>Fehlerberichte</translation>
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
    <name>LicencesPage</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Licence agreement</source>
        <translation>Lizenzvertrag</translation>
    </message>
    <message>
        <source>Open-source software</source>
        <translation>Open-Source-Software</translation>
    </message>
    <message>
        <source>Licences are not shown while driving.</source>
        <translation>Während der Fahrt werden keine Lizenzen angezeigt.</translation>
    </message>
    <message>
        <source>The document cannot be read.</source>
        <translation>Das Dokument ist nicht lesbar.</translation>
    </message>
    <message>
        <source>Licences</source>
        <translation>Lizenzen</translation>
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
    <name>NotificationRow</name>
    <message>
        <source>%1 at %2°, %3°</source>
        <translation>%1 bei %2°, %3°</translation>
    </message>
    <message>
        <source>Priority %1</source>
        <translation>Priorität %1</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Dismiss %1</source>
        <translation>%1 verwerfen</translation>
    </message>
</context>
<context>
    <name>NotificationsScreen</name>
    <message>
        <source>Notifications</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>There are no notifications</source>
        <translation>Es gibt keine Meldungen</translation>
    </message>
    <message>
        <source>The notification service is away</source>
        <translation>Der Meldungsdienst ist nicht erreichbar</translation>
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
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
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
    <message>
        <source>Licences</source>
        <translation>Lizenzen</translation>
    </message>
    <message>
        <source>Error reports</source>
        <translation>Fehlerberichte</translation>
    </message>
    <message>
        <source>Software</source>
        <translation>Software</translation>
    </message>
    <message>
        <source>Circuit board</source>
        <translation>Platine</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>Build</translation>
    </message>
    <message>
        <source>Commit</source>
        <translation>Commit</translation>
    </message>
    <message>
        <source>Qt</source>
        <translation>Qt</translation>
    </message>
    <message>
        <source>Network %1</source>
        <translation>Netzwerk %1</translation>
    </message>
    <message>
        <source>no address</source>
        <translation>keine Adresse</translation>
    </message>
    <message>
        <source>Module %1</source>
        <translation>Modul %1</translation>
    </message>
</context>
<context>
    <name>UpdateScreen</name>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Looking for an update…</source>
        <translation>Suche nach einem Update …</translation>
    </message>
    <message>
        <source>No update was found</source>
        <translation>Es wurde kein Update gefunden</translation>
    </message>
    <message>
        <source>An update can be downloaded</source>
        <translation>Ein Update kann geladen werden</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Update wird geladen</translation>
    </message>
    <message>
        <source>The download is paused</source>
        <translation>Der Download ist angehalten</translation>
    </message>
    <message>
        <source>An update can be installed</source>
        <translation>Ein Update kann installiert werden</translation>
    </message>
    <message>
        <source>Verifying the update</source>
        <translation>Update wird geprüft</translation>
    </message>
    <message>
        <source>Installing</source>
        <translation>Update wird installiert</translation>
    </message>
    <message>
        <source>Checking the installation</source>
        <translation>Installation wird überprüft</translation>
    </message>
    <message>
        <source>The installation was checked</source>
        <translation>Die Installation wurde überprüft</translation>
    </message>
    <message>
        <source>The update is installed</source>
        <translation>Das Update ist installiert</translation>
    </message>
    <message>
        <source>The update could not be installed</source>
        <translation>Das Update konnte nicht installiert werden</translation>
    </message>
    <message>
        <source>The update service is away. Updates go on when it is back.</source>
        <translation>Der Update-Dienst ist nicht erreichbar. Es geht weiter, sobald er zurück ist.</translation>
    </message>
    <message>
        <source>There was no progress for a while.</source>
        <translation>Seit einer Weile gibt es keinen Fortschritt.</translation>
    </message>
    <message>
        <source>Please leave the ignition on.</source>
        <translation>Bitte die Zündung eingeschaltet lassen.</translation>
    </message>
    <message>
        <source>Updates are not installed while driving.</source>
        <translation>Während der Fahrt werden keine Updates installiert.</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Wait no longer</source>
        <translation>Nicht länger warten</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>There is no update</source>
        <translation>Es gibt kein Update</translation>
    </message>
</context>
</TS>
