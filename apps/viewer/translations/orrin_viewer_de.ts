<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CameraPanel</name>
    <message>
        <source>Find a camera</source>
        <translation>Kamera suchen</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>PTZ</source>
        <translation>PTZ</translation>
    </message>
    <message>
        <source>No cameras yet</source>
        <translation>Noch keine Kameras</translation>
    </message>
    <message>
        <source>No camera of that name</source>
        <translation>Keine Kamera mit diesem Namen</translation>
    </message>
</context>
<context>
    <name>CameraTile</name>
    <message>
        <source>No camera</source>
        <translation>Keine Kamera</translation>
    </message>
    <message>
        <source>Not on this site</source>
        <translation>Nicht an diesem Standort</translation>
    </message>
    <message>
        <source>No picture</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>Waiting for the picture …</source>
        <translation>Warten auf das Bild …</translation>
    </message>
</context>
<context>
    <name>ChannelSelection</name>
    <message>
        <source>Channel Selection</source>
        <translation>Kanalauswahl</translation>
    </message>
</context>
<context>
    <name>ChannelWindow</name>
    <message>
        <source>Select Camera</source>
        <translation>Kamera auswählen</translation>
    </message>
    <message>
        <source>Search Cameras</source>
        <translation>Kameras suchen</translation>
    </message>
</context>
<context>
    <name>Chart</name>
    <message>
        <source>%1
Status: %2</source>
        <translation>%1
Status: %2</translation>
    </message>
    <message>
        <source>%1
Value: %2</source>
        <translation>%1
Wert: %2</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>Neustart</translation>
    </message>
    <message>
        <source>Not recording</source>
        <translation>Keine Aufzeichnung</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Störung</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Standby</source>
        <translation>Bereitschaft</translation>
    </message>
    <message>
        <source>Standby2</source>
        <translation>Bereitschaft 2</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Good</source>
        <translation>In Ordnung</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>Schreibgeschützt</translation>
    </message>
    <message>
        <source>Rebuilding</source>
        <translation>Wird wiederhergestellt</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Ausgefallen</translation>
    </message>
    <message>
        <source>Foreign</source>
        <translation>Fremd</translation>
    </message>
    <message>
        <source>Degraded</source>
        <translation>Eingeschränkt</translation>
    </message>
    <message>
        <source>Formatted</source>
        <translation>Formatiert</translation>
    </message>
    <message>
        <source>Not formatted</source>
        <translation>Nicht formatiert</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Bad</source>
        <translation>Schlecht</translation>
    </message>
    <message>
        <source>Not Permitted</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>Video Loss</source>
        <translation>Videoverlust</translation>
    </message>
    <message>
        <source>Initializing</source>
        <translation>Wird initialisiert</translation>
    </message>
    <message>
        <source>Unauthorized</source>
        <translation>Nicht berechtigt</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Stream fail</source>
        <translation>Streamfehler</translation>
    </message>
    <message>
        <source>Awaiting restart</source>
        <translation>Wartet auf Neustart</translation>
    </message>
    <message>
        <source>Check log</source>
        <translation>Protokoll prüfen</translation>
    </message>
    <message>
        <source>Net problem</source>
        <translation>Netzwerkproblem</translation>
    </message>
    <message>
        <source>Configuring</source>
        <translation>Wird konfiguriert</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Wird verbunden</translation>
    </message>
    <message>
        <source>Connected/Starting</source>
        <translation>Verbunden/Startet</translation>
    </message>
    <message>
        <source>No Stream</source>
        <translation>Kein Stream</translation>
    </message>
</context>
<context>
    <name>ChartTools</name>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Remove this chart</source>
        <translation>Dieses Diagramm entfernen</translation>
    </message>
</context>
<context>
    <name>DatetimeSelection</name>
    <message>
        <source>Selected date: %1</source>
        <translation>Gewähltes Datum: %1</translation>
    </message>
</context>
<context>
    <name>EventSourceSelector</name>
    <message>
        <source>Device ID:</source>
        <translation>Geräte-ID:</translation>
    </message>
    <message>
        <source>Sub Device:</source>
        <translation>Untergerät:</translation>
    </message>
</context>
<context>
    <name>EventsPage</name>
    <message>
        <source>Events</source>
        <translation>Ereignisse</translation>
    </message>
    <message numerus="yes">
        <source>%n events</source>
        <translation>
            <numerusform>%n Ereignis</numerusform>
            <numerusform>%n Ereignisse</numerusform>
        </translation>
    </message>
    <message>
        <source>Rule</source>
        <translation>Regel</translation>
    </message>
    <message>
        <source>Mark the events of a rule</source>
        <translation>Nach Regel hervorheben</translation>
    </message>
    <message>
        <source>Causes of</source>
        <translation>Ursachen von</translation>
    </message>
    <message>
        <source>Cause, empty for any</source>
        <translation>Ursache, leer für jede</translation>
    </message>
    <message>
        <source>Recorder and camera, 0 for any</source>
        <translation>Rekorder und Kamera, 0 für jede</translation>
    </message>
    <message>
        <source>No events yet</source>
        <translation>Noch keine Ereignisse</translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>MP4 video (*.mp4)</source>
        <translation>MP4-Video (*.mp4)</translation>
    </message>
    <message>
        <source>Export recorded video</source>
        <translation>Aufzeichnung exportieren</translation>
    </message>
    <message>
        <source>%1, from %2</source>
        <translation>%1, ab %2</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>10 seconds</source>
        <translation>10 Sekunden</translation>
    </message>
    <message>
        <source>30 seconds</source>
        <translation>30 Sekunden</translation>
    </message>
    <message>
        <source>1 minute</source>
        <translation>1 Minute</translation>
    </message>
    <message>
        <source>5 minutes</source>
        <translation>5 Minuten</translation>
    </message>
    <message>
        <source>15 minutes</source>
        <translation>15 Minuten</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 Stunde</translation>
    </message>
    <message>
        <source>6 hours</source>
        <translation>6 Stunden</translation>
    </message>
    <message>
        <source>24 hours</source>
        <translation>24 Stunden</translation>
    </message>
    <message>
        <source>Choose …</source>
        <translation>Auswählen …</translation>
    </message>
    <message>
        <source>Progress of the export</source>
        <translation>Fortschritt des Exports</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
</context>
<context>
    <name>FilterCombo</name>
    <message>
        <source>Statistic:</source>
        <translation>Messwert:</translation>
    </message>
    <message>
        <source>Filter:</source>
        <translation>Filter:</translation>
    </message>
</context>
<context>
    <name>Gallery</name>
    <message>
        <source>Control height</source>
        <translation>Höhe der Bedienelemente</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>GalleryControls</name>
    <message>
        <source>A name that is much longer than the place it is given, as some are</source>
        <translation>Ein Name, der viel länger ist als sein Platz, wie es manche sind</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>Ereignisse</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>A label</source>
        <translation>Eine Beschriftung</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Woche</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Host</translation>
    </message>
    <message>
        <source>Trace</source>
        <translation>Ablauf</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Debug</translation>
    </message>
    <message>
        <source>operator</source>
        <translation>bediener</translation>
    </message>
    <message>
        <source>read only</source>
        <translation>schreibgeschützt</translation>
    </message>
</context>
<context>
    <name>GalleryScreens</name>
    <message>
        <source>Over video</source>
        <translation>Über dem Video</translation>
    </message>
    <message>
        <source>&lt;b&gt;Rich&lt;/b&gt; heading</source>
        <translation>&lt;b&gt;Reiche&lt;/b&gt; Überschrift</translation>
    </message>
    <message>
        <source>First of a stack</source>
        <translation>Erste eines Stapels</translation>
    </message>
    <message>
        <source>Second of a stack</source>
        <translation>Zweite eines Stapels</translation>
    </message>
    <message>
        <source>Snapshot saved</source>
        <translation>Schnappschuss gespeichert</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>factor %1</source>
        <translation>Faktor %1</translation>
    </message>
</context>
<context>
    <name>GeneralSettingsPage</name>
    <message>
        <source>Font size (%)</source>
        <translation>Schriftgröße (%)</translation>
    </message>
    <message>
        <source>Control height (%)</source>
        <translation>Höhe der Bedienelemente (%)</translation>
    </message>
    <message>
        <source>Overlay info on snapshot</source>
        <translation>Informationen in den Schnappschuss einblenden</translation>
    </message>
    <message>
        <source>Display square on pinch points</source>
        <translation>Quadrate an den Fingerpunkten anzeigen</translation>
    </message>
</context>
<context>
    <name>KeyNames</name>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Page up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>page down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>arrows</source>
        <translation>Pfeile</translation>
    </message>
</context>
<context>
    <name>KeyQuestion</name>
    <message>
        <source>The key of %1 is not the one it had at your last login. The server may have been set up anew, or somebody may stand between you and it.</source>
        <translation>Der Schlüssel von %1 ist nicht mehr der Ihrer letzten Anmeldung. Der Server wurde vielleicht neu eingerichtet, oder jemand hat sich zwischen Sie und ihn geschaltet.</translation>
    </message>
    <message>
        <source>Trusted so far</source>
        <translation>Bisher vertraut</translation>
    </message>
    <message>
        <source>Shown now</source>
        <translation>Jetzt gezeigt</translation>
    </message>
    <message>
        <source>Do not connect</source>
        <translation>Nicht verbinden</translation>
    </message>
    <message>
        <source>Trust the new key</source>
        <translation>Neuem Schlüssel vertrauen</translation>
    </message>
</context>
<context>
    <name>LayoutBar</name>
    <message>
        <source>Grid of %1 by %1</source>
        <translation>Raster %1 mal %1</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Ansichten</translation>
    </message>
</context>
<context>
    <name>LayoutMenu</name>
    <message>
        <source>No layout is saved yet.</source>
        <translation>Noch keine Ansicht gespeichert.</translation>
    </message>
    <message>
        <source>Delete the layout %1</source>
        <translation>Ansicht %1 löschen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Name of the layout</source>
        <translation>Name der Ansicht</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Take turns</source>
        <translation>Abwechseln</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Seconds for each layout</source>
        <translation>Sekunden je Ansicht</translation>
    </message>
</context>
<context>
    <name>LayoutSettingsPage</name>
    <message>
        <source>Low resolution if grid&apos;s dimension is greater than this.</source>
        <translation>Niedrige Auflösung, wenn das Raster größer ist als dieser Wert.</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>Ansicht zurücksetzen</translation>
    </message>
    <message>
        <source>Restore the grid dimensions to 1x1.</source>
        <translation>Das Raster auf 1x1 zurücksetzen.</translation>
    </message>
</context>
<context>
    <name>LivePage</name>
    <message numerus="yes">
        <source>%n cameras</source>
        <translation>
            <numerusform>%n Kamera</numerusform>
            <numerusform>%n Kameras</numerusform>
        </translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
</context>
<context>
    <name>LogSettingsPage</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
</context>
<context>
    <name>LoginPage</name>
    <message>
        <source>Server, user and password are all needed.</source>
        <translation>Server, Benutzer und Passwort werden benötigt.</translation>
    </message>
    <message>
        <source>The session timed out.</source>
        <translation>Die Sitzung ist abgelaufen.</translation>
    </message>
    <message>
        <source>Add a site</source>
        <translation>Standort hinzufügen</translation>
    </message>
    <message>
        <source>Log in</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Server (host or host:port)</source>
        <translation>Server (Host oder Host:Port)</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>All servers of the site</source>
        <translation>Alle Server des Standorts</translation>
    </message>
    <message>
        <source>Connecting …</source>
        <translation>Verbinden …</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Orrin Viewer</source>
        <translation>Orrin Viewer</translation>
    </message>
</context>
<context>
    <name>NavigationRail</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>O_Calendar</name>
    <message>
        <source>Previous month</source>
        <translation>Voriger Monat</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Nächster Monat</translation>
    </message>
</context>
<context>
    <name>O_Polygon</name>
    <message>
        <source>Remove This Handle</source>
        <translation>Diesen Punkt entfernen</translation>
    </message>
    <message>
        <source>Add a point here</source>
        <translation>Hier einen Punkt hinzufügen</translation>
    </message>
    <message>
        <source>Hide handles</source>
        <translation>Punkte ausblenden</translation>
    </message>
    <message>
        <source>Show handles</source>
        <translation>Punkte einblenden</translation>
    </message>
    <message>
        <source>Remove this polygon</source>
        <translation>Dieses Polygon entfernen</translation>
    </message>
</context>
<context>
    <name>PlaybackCommands</name>
    <message>
        <source>LIVE</source>
        <translation>LIVE</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>Pause</translation>
    </message>
</context>
<context>
    <name>PtzExtraControls</name>
    <message>
        <source>Preset:</source>
        <translation>Position:</translation>
    </message>
    <message>
        <source>Tour:</source>
        <translation>Rundgang:</translation>
    </message>
</context>
<context>
    <name>RecorderFinder</name>
    <message>
        <source>Looking for recorders …</source>
        <translation>Rekorder werden gesucht …</translation>
    </message>
    <message>
        <source>There is no network to look in.</source>
        <translation>Es gibt kein Netzwerk, in dem gesucht werden kann.</translation>
    </message>
    <message>
        <source>No recorder answered. Recorders in other networks have to be typed in.</source>
        <translation>Kein Rekorder hat geantwortet. Geben Sie die Adresse ein, wenn er in einem anderen Netzwerk ist.</translation>
    </message>
    <message>
        <source>Stop looking</source>
        <translation>Suche beenden</translation>
    </message>
    <message>
        <source>Look again</source>
        <translation>Erneut suchen</translation>
    </message>
    <message>
        <source>Find recorders</source>
        <translation>Rekorder suchen</translation>
    </message>
    <message>
        <source>Looking for recorders</source>
        <translation>Suche nach Rekordern</translation>
    </message>
    <message>
        <source>Recorders found</source>
        <translation>Gefundene Rekorder</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>SecuritySettingsPage</name>
    <message>
        <source>Check server&apos;s public key on login</source>
        <translation>Öffentlichen Schlüssel des Servers bei der Anmeldung prüfen</translation>
    </message>
</context>
<context>
    <name>Shell</name>
    <message>
        <source>Live and playback</source>
        <translation>Live und Wiedergabe</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>Ereignisse</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Zones</source>
        <translation>Zonen</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Snapshot saved: %1</source>
        <translation>Schnappschuss gespeichert: %1</translation>
    </message>
    <message>
        <source>Add a site</source>
        <translation>Standort hinzufügen</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Log out</source>
        <translation>Abmelden</translation>
    </message>
</context>
<context>
    <name>ShortcutSheet</name>
    <message>
        <source>Everywhere</source>
        <translation>Überall</translation>
    </message>
    <message>
        <source>Live, events, statistics, zones, settings</source>
        <translation>Live, Ereignisse, Statistik, Zonen, Einstellungen</translation>
    </message>
    <message>
        <source>Find a camera</source>
        <translation>Kamera suchen</translation>
    </message>
    <message>
        <source>Add a site</source>
        <translation>Standort hinzufügen</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>This sheet</source>
        <translation>Diese Übersicht</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Tiles</source>
        <translation>Kacheln</translation>
    </message>
    <message>
        <source>Selected tile alone, and back</source>
        <translation>Gewählte Kachel allein und zurück</translation>
    </message>
    <message>
        <source>Previous and next camera</source>
        <translation>Vorige und nächste Kamera</translation>
    </message>
    <message>
        <source>Grid of so many rows and columns</source>
        <translation>Raster mit so vielen Zeilen und Spalten</translation>
    </message>
    <message>
        <source>Select another tile</source>
        <translation>Andere Kachel wählen</translation>
    </message>
    <message>
        <source>Steer the camera</source>
        <translation>Kamera steuern</translation>
    </message>
    <message>
        <source>Zoom into the picture</source>
        <translation>Ins Bild zoomen</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Wiedergabe oder Pause</translation>
    </message>
    <message>
        <source>Rewind, pause, fast forward</source>
        <translation>Rücklauf, Pause, Vorlauf</translation>
    </message>
    <message>
        <source>One picture back or on</source>
        <translation>Ein Bild zurück oder vor</translation>
    </message>
    <message>
        <source>Ten seconds back or on</source>
        <translation>Zehn Sekunden zurück oder vor</translation>
    </message>
    <message>
        <source>Beginning and end of the recording</source>
        <translation>Anfang und Ende der Aufzeichnung</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
    <message>
        <source>Go to date and time</source>
        <translation>Zu Datum und Uhrzeit springen</translation>
    </message>
    <message>
        <source>All tiles at one moment</source>
        <translation>Alle Kacheln zum selben Zeitpunkt</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>Schnappschuss</translation>
    </message>
    <message>
        <source>Export recorded video</source>
        <translation>Aufzeichnung exportieren</translation>
    </message>
    <message>
        <source>Zoom the timeline</source>
        <translation>Zeitleiste zoomen</translation>
    </message>
</context>
<context>
    <name>StartOptions</name>
    <message>
        <source>Speak this language instead of the system&apos;s: %1.</source>
        <translation>Diese Sprache statt der des Systems verwenden: %1.</translation>
    </message>
    <message>
        <source>Viewer for video surveillance servers.</source>
        <translation>Betrachter für Videoüberwachungsserver.</translation>
    </message>
    <message>
        <source>Log in to this server; port 8601 when none is given.</source>
        <translation>An diesem Server anmelden; Port 8601, wenn keiner angegeben ist.</translation>
    </message>
    <message>
        <source>The user; with a password in the variable ORRIN_PASSWORD the login begins at once.</source>
        <translation>Der Benutzer; mit einem Passwort in der Variablen ORRIN_PASSWORD beginnt die Anmeldung sofort.</translation>
    </message>
    <message>
        <source>Walk through the pages, leave a screenshot of each in this folder, and end.</source>
        <translation>Alle Seiten durchgehen, von jeder ein Bildschirmfoto in diesem Ordner ablegen und enden.</translation>
    </message>
    <message>
        <source>Begin with this saved layout.</source>
        <translation>Mit dieser gespeicherten Ansicht beginnen.</translation>
    </message>
    <message>
        <source>Begin in full screen.</source>
        <translation>Im Vollbild beginnen.</translation>
    </message>
    <message>
        <source>Developer mode: Ctrl+G shows the gallery of components.</source>
        <translation>Entwicklermodus: Strg+G zeigt die Galerie der Komponenten.</translation>
    </message>
    <message>
        <source>There are no texts in the language &quot;%1&quot;.</source>
        <translation>Es gibt keine Texte in der Sprache „%1“.</translation>
    </message>
    <message>
        <source>Begin with a window of this size.</source>
        <translation>Mit einem Fenster dieser Größe beginnen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no size; 1280x800 is one.</source>
        <translation>„%1“ ist keine Größe; 1280x800 ist eine.</translation>
    </message>
</context>
<context>
    <name>StatisticsBar</name>
    <message>
        <source>Hour</source>
        <translation>Stunde</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Woche</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Window…</source>
        <translation>Zeitraum…</translation>
    </message>
    <message>
        <source>Save as CSV</source>
        <translation>Als CSV speichern</translation>
    </message>
    <message>
        <source>UTC</source>
        <translation>UTC</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>There is no such day or hour.</source>
        <translation>Diesen Tag oder diese Stunde gibt es nicht.</translation>
    </message>
</context>
<context>
    <name>StatisticsPage</name>
    <message>
        <source>There is no picture.</source>
        <translation>Es gibt kein Bild.</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>There is no server.</source>
        <translation>Kein Server vorhanden.</translation>
    </message>
    <message>
        <source>Save the samples that are shown</source>
        <translation>Angezeigte Messwerte speichern</translation>
    </message>
    <message>
        <source>Tables (*.csv)</source>
        <translation>Tabellen (*.csv)</translation>
    </message>
    <message>
        <source>Save the chart</source>
        <translation>Diagramm speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Bilder (*.png)</translation>
    </message>
</context>
<context>
    <name>StatisticsSource</name>
    <message>
        <source>There is no picture.</source>
        <translation>Es gibt kein Bild.</translation>
    </message>
    <message>
        <source>The picture could not be written.</source>
        <translation>Das Bild konnte nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>SubtitlesSettingsPage</name>
    <message>
        <source>Server name</source>
        <translation>Servername</translation>
    </message>
    <message>
        <source>Camera name</source>
        <translation>Kameraname</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
</context>
<context>
    <name>TileHeader</name>
    <message>
        <source>HD</source>
        <translation>HD</translation>
    </message>
</context>
<context>
    <name>TilePicture</name>
    <message>
        <source>The picture is not available.</source>
        <translation>Das Bild ist nicht verfügbar.</translation>
    </message>
</context>
<context>
    <name>TimePicker</name>
    <message>
        <source>Hour</source>
        <translation>Std.</translation>
    </message>
    <message>
        <source>Minute</source>
        <translation>Min.</translation>
    </message>
    <message>
        <source>Second</source>
        <translation>Sek.</translation>
    </message>
</context>
<context>
    <name>TimelinePanel</name>
    <message>
        <source>No picture yet</source>
        <translation>Noch kein Bild</translation>
    </message>
    <message>
        <source>No camera selected</source>
        <translation>Keine Kamera gewählt</translation>
    </message>
</context>
<context>
    <name>TimelineScale</name>
    <message>
        <source>ddd d MMM</source>
        <extracomment>a day on the timeline, in the pattern of QLocale</extracomment>
        <translation>ddd d. MMM</translation>
    </message>
    <message>
        <source>ddd d MMM yyyy  HH:mm:ss</source>
        <extracomment>the moment at the playhead, in the pattern of QLocale</extracomment>
        <translation>ddd, d. MMM yyyy  HH:mm:ss</translation>
    </message>
</context>
<context>
    <name>TrackView</name>
    <message>
        <source>Server Group</source>
        <translation>Servergruppe</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>IsEnabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>IsCamera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
</context>
<context>
    <name>TransportBar</name>
    <message>
        <source>To the beginning</source>
        <translation>Zum Anfang</translation>
    </message>
    <message>
        <source>Rewind, faster with each press</source>
        <translation>Rücklauf, mit jedem Drücken schneller</translation>
    </message>
    <message>
        <source>One picture back</source>
        <translation>Ein Bild zurück</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Wiedergabe oder Pause</translation>
    </message>
    <message>
        <source>One picture on</source>
        <translation>Ein Bild vor</translation>
    </message>
    <message>
        <source>Fast forward, faster with each press</source>
        <translation>Vorlauf, mit jedem Drücken schneller</translation>
    </message>
    <message>
        <source>To the end</source>
        <translation>Zum Ende</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
    <message>
        <source>Speed %1</source>
        <translation>Geschwindigkeit %1</translation>
    </message>
    <message>
        <source>Go to date and time</source>
        <translation>Zu Datum und Uhrzeit springen</translation>
    </message>
    <message>
        <source>All tiles at one moment</source>
        <translation>Alle Kacheln zum selben Zeitpunkt</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>Schnappschuss</translation>
    </message>
    <message>
        <source>Export recorded video</source>
        <translation>Aufzeichnung exportieren</translation>
    </message>
</context>
<context>
    <name>VideoOutput</name>
    <message>
        <source>Waiiting for stream...</source>
        <translation>Warten auf den Stream …</translation>
    </message>
    <message>
        <source>Waiting for stream...</source>
        <translation>Warten auf den Stream …</translation>
    </message>
    <message>
        <source>Image saved in: </source>
        <translation>Bild gespeichert in: </translation>
    </message>
    <message>
        <source>Screenshot failed in: </source>
        <translation>Schnappschuss fehlgeschlagen in: </translation>
    </message>
</context>
<context>
    <name>ZoneEditor</name>
    <message>
        <source>Zone %1</source>
        <translation>Zone %1</translation>
    </message>
    <message>
        <source>Zones</source>
        <translation>Zonen</translation>
    </message>
    <message>
        <source>Zones of %1</source>
        <translation>Zonen von %1</translation>
    </message>
    <message>
        <source>Name of the zone</source>
        <translation>Name der Zone</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>No camera</source>
        <translation>Keine Kamera</translation>
    </message>
    <message>
        <source>No zones yet: add one</source>
        <translation>Noch keine Zonen: Fügen Sie eine hinzu</translation>
    </message>
    <message>
        <source>Drag a corner or the whole zone. A double click adds a corner, the right button shows more.</source>
        <translation>Ziehen Sie eine Ecke oder die ganze Zone. Ein Doppelklick fügt eine Ecke hinzu, die rechte Maustaste zeigt mehr.</translation>
    </message>
</context>
<context>
    <name>ZoneStore</name>
    <message>
        <source>There are zones for too many cameras.</source>
        <translation>Es gibt Zonen für zu viele Kameras.</translation>
    </message>
    <message>
        <source>The zones in %1 cannot be read.</source>
        <translation>Die Zonen in %1 sind nicht lesbar.</translation>
    </message>
    <message>
        <source>The zones cannot be written to %1: %2</source>
        <translation>Die Zonen können nicht nach %1 geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>orrin::ClipExport</name>
    <message>
        <source>The span is empty or longer than a day.</source>
        <translation>Der Zeitraum ist leer oder länger als ein Tag.</translation>
    </message>
    <message>
        <source>There is no such folder: %1</source>
        <translation>Diesen Ordner gibt es nicht: %1</translation>
    </message>
    <message>
        <source>There is no connection to the recorder.</source>
        <translation>Es besteht keine Verbindung zum Rekorder.</translation>
    </message>
    <message>
        <source>The file cannot be written: %1</source>
        <translation>Die Datei kann nicht geschrieben werden: %1</translation>
    </message>
</context>
<context>
    <name>orrin::ClipRecorder</name>
    <message>
        <source>The disk is full.</source>
        <translation>Der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>The file cannot be written: %1</source>
        <translation>Die Datei kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>Nothing is recorded in this span.</source>
        <translation>In diesem Zeitraum ist nichts aufgezeichnet.</translation>
    </message>
    <message>
        <source>The recorder stopped: %1</source>
        <translation>Der Rekorder hat abgebrochen: %1</translation>
    </message>
</context>
<context>
    <name>orrin::ConnectionError</name>
    <message>
        <source>No error</source>
        <translation>Kein Fehler</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>Verbindung verloren</translation>
    </message>
    <message>
        <source>The server does not answer</source>
        <translation>Der Server antwortet nicht</translation>
    </message>
    <message>
        <source>The server&apos;s answer could not be read</source>
        <translation>Die Antwort des Servers ist nicht lesbar</translation>
    </message>
    <message>
        <source>Server&apos;s public key has changed</source>
        <translation>Der öffentliche Schlüssel des Servers hat sich geändert</translation>
    </message>
    <message>
        <source>The server refused the user</source>
        <translation>Der Server hat den Benutzer abgewiesen</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Unbekannter Fehler</translation>
    </message>
</context>
<context>
    <name>orrin::EventTopic</name>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>Motion ended</source>
        <translation>Bewegung beendet</translation>
    </message>
    <message>
        <source>Object in field</source>
        <translation>Objekt im Feld</translation>
    </message>
    <message>
        <source>Field empty</source>
        <translation>Feld leer</translation>
    </message>
    <message>
        <source>Line crossed</source>
        <translation>Linie überquert</translation>
    </message>
    <message>
        <source>Line crossed ended</source>
        <translation>Linienüberquerung beendet</translation>
    </message>
    <message>
        <source>Tampering</source>
        <translation>Manipulation</translation>
    </message>
    <message>
        <source>Tampering ended</source>
        <translation>Manipulation beendet</translation>
    </message>
    <message>
        <source>Video loss</source>
        <translation>Videoverlust</translation>
    </message>
    <message>
        <source>Video restored</source>
        <translation>Video wieder da</translation>
    </message>
    <message>
        <source>Scene change</source>
        <translation>Szenenwechsel</translation>
    </message>
    <message>
        <source>Scene change ended</source>
        <translation>Szenenwechsel beendet</translation>
    </message>
    <message>
        <source>Picture blurred</source>
        <translation>Bild unscharf</translation>
    </message>
    <message>
        <source>Picture sharp again</source>
        <translation>Bild wieder scharf</translation>
    </message>
    <message>
        <source>Picture too dark</source>
        <translation>Bild zu dunkel</translation>
    </message>
    <message>
        <source>Picture bright again</source>
        <translation>Bild wieder hell</translation>
    </message>
    <message>
        <source>Picture too bright</source>
        <translation>Bild zu hell</translation>
    </message>
    <message>
        <source>Picture normal again</source>
        <translation>Bild wieder normal</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Geräusch</translation>
    </message>
    <message>
        <source>Sound ended</source>
        <translation>Geräusch beendet</translation>
    </message>
    <message>
        <source>Door open</source>
        <translation>Tür offen</translation>
    </message>
    <message>
        <source>Door closed</source>
        <translation>Tür geschlossen</translation>
    </message>
    <message>
        <source>Door alarm</source>
        <translation>Türalarm</translation>
    </message>
    <message>
        <source>Door alarm ended</source>
        <translation>Türalarm beendet</translation>
    </message>
    <message>
        <source>Input on</source>
        <translation>Eingang ein</translation>
    </message>
    <message>
        <source>Input off</source>
        <translation>Eingang aus</translation>
    </message>
    <message>
        <source>Relay on</source>
        <translation>Relais ein</translation>
    </message>
    <message>
        <source>Relay off</source>
        <translation>Relais aus</translation>
    </message>
    <message>
        <source>Storage failure</source>
        <translation>Speicherausfall</translation>
    </message>
    <message>
        <source>Storage repaired</source>
        <translation>Speicher repariert</translation>
    </message>
    <message>
        <source>Fan failure</source>
        <translation>Lüfterausfall</translation>
    </message>
    <message>
        <source>Fan repaired</source>
        <translation>Lüfter repariert</translation>
    </message>
    <message>
        <source>Power failure</source>
        <translation>Stromausfall</translation>
    </message>
    <message>
        <source>Power restored</source>
        <translation>Strom wieder da</translation>
    </message>
    <message>
        <source>Temperature critical</source>
        <translation>Temperatur kritisch</translation>
    </message>
    <message>
        <source>Temperature normal</source>
        <translation>Temperatur normal</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Anmeldung</translation>
    </message>
    <message>
        <source>Login ended</source>
        <translation>Anmeldung beendet</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>%1 ended</source>
        <extracomment>%1 is what an event is called</extracomment>
        <translation>%1 beendet</translation>
    </message>
</context>
<context>
    <name>orrin::LoginError</name>
    <message>
        <source>No error</source>
        <translation>Kein Fehler</translation>
    </message>
    <message>
        <source>Too many open connections. Server: %1, port: %2</source>
        <translation>Zu viele offene Verbindungen. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Invalid username or password. Server: %1, port: %2</source>
        <translation>Benutzername oder Passwort ungültig. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Login not permitted at this time. Server: %1, port: %2</source>
        <translation>Anmeldung zu dieser Zeit nicht erlaubt. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Failed to connect to the server. Server: %1, port: %2</source>
        <translation>Verbindung zum Server fehlgeschlagen. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Server is not available. Server: %1, port: %2</source>
        <translation>Der Server ist nicht erreichbar. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Failed to set up connection. Server: %1, port: %2</source>
        <translation>Die Verbindung konnte nicht eingerichtet werden. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Password required for encrypted archive %1.</source>
        <translation>Für das verschlüsselte Archiv %1 wird ein Passwort benötigt.</translation>
    </message>
    <message>
        <source>No such file or directory.</source>
        <translation>Datei oder Verzeichnis nicht gefunden.</translation>
    </message>
    <message>
        <source>File is not a recognized archive.</source>
        <translation>Die Datei ist kein bekanntes Archiv.</translation>
    </message>
    <message>
        <source>Server&apos;s public key has changed. Server: %1, port: %2</source>
        <translation>Der öffentliche Schlüssel des Servers hat sich geändert. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Login not permitted from this address. Server: %1, port: %2</source>
        <translation>Anmeldung von dieser Adresse nicht erlaubt. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Unknown error. Server: %1, port: %2</source>
        <translation>Unbekannter Fehler. Server: %1, Port: %2</translation>
    </message>
    <message>
        <source>Your account is locked for %1 seconds. Server: %2, port: %3</source>
        <translation>Ihr Konto ist für %1 Sekunden gesperrt. Server: %2, Port: %3</translation>
    </message>
    <message>
        <source>Your account is locked for %1 minute. Server: %2, port: %3</source>
        <translation>Ihr Konto ist für %1 Minute gesperrt. Server: %2, Port: %3</translation>
    </message>
    <message>
        <source>Your account is locked for %1 minutes. Server: %2, port: %3</source>
        <translation>Ihr Konto ist für %1 Minuten gesperrt. Server: %2, Port: %3</translation>
    </message>
</context>
<context>
    <name>orrin::PlaybackError</name>
    <message>
        <source>A private key is needed to play this stream.</source>
        <translation>Für diesen Stream wird ein privater Schlüssel benötigt.</translation>
    </message>
    <message>
        <source>The private key does not fit this stream.</source>
        <translation>Der private Schlüssel passt nicht zu diesem Stream.</translation>
    </message>
    <message>
        <source>The private key needs its password.</source>
        <translation>Der private Schlüssel benötigt sein Passwort.</translation>
    </message>
    <message>
        <source>The password of the private key is wrong.</source>
        <translation>Das Passwort des privaten Schlüssels ist falsch.</translation>
    </message>
    <message>
        <source>The stream was lost. Trying again.</source>
        <translation>Der Stream ist abgebrochen. Neuer Versuch läuft.</translation>
    </message>
    <message>
        <source>The private key has expired.</source>
        <translation>Der private Schlüssel ist abgelaufen.</translation>
    </message>
    <message>
        <source>The server does not permit this stream.</source>
        <translation>Der Server erlaubt diesen Stream nicht.</translation>
    </message>
    <message>
        <source>Beyond the end of the recording.</source>
        <translation>Jenseits vom Ende der Aufzeichnung.</translation>
    </message>
    <message>
        <source>The server has no such stream.</source>
        <translation>Der Server hat keinen solchen Stream.</translation>
    </message>
    <message>
        <source>This kind of stream cannot be played.</source>
        <translation>Diese Art von Stream kann nicht wiedergegeben werden.</translation>
    </message>
    <message>
        <source>The stream cannot be decoded.</source>
        <translation>Der Stream kann nicht dekodiert werden.</translation>
    </message>
    <message>
        <source>The server shows another key than the one that is trusted.</source>
        <translation>Der Server zeigt einen anderen Schlüssel als den vertrauten.</translation>
    </message>
    <message>
        <source>The stream failed.</source>
        <translation>Der Stream ist ausgefallen.</translation>
    </message>
</context>
<context>
    <name>orrin::PtzfError</name>
    <message>
        <source>Unknown error</source>
        <translation>Unbekannter Fehler</translation>
    </message>
    <message>
        <source>No error</source>
        <translation>Kein Fehler</translation>
    </message>
    <message>
        <source>The camera can&apos;t be reached</source>
        <translation>Die Kamera ist nicht erreichbar</translation>
    </message>
    <message>
        <source>You are not permitted to move this camera</source>
        <translation>Sie dürfen diese Kamera nicht bewegen</translation>
    </message>
    <message>
        <source>The camera doesn&apos;t support this</source>
        <translation>Die Kamera unterstützt dies nicht</translation>
    </message>
    <message>
        <source>The camera has no such preset</source>
        <translation>Die Kamera hat diese Position nicht</translation>
    </message>
    <message>
        <source>The camera has no such tour</source>
        <translation>Die Kamera hat diesen Rundgang nicht</translation>
    </message>
    <message>
        <source>The camera does not answer</source>
        <translation>Die Kamera antwortet nicht</translation>
    </message>
    <message>
        <source>The camera refused the command</source>
        <translation>Die Kamera hat den Befehl abgelehnt</translation>
    </message>
    <message>
        <source>The camera is busy</source>
        <translation>Die Kamera ist beschäftigt</translation>
    </message>
</context>
<context>
    <name>orrin::QmlChannelModel</name>
    <message>
        <source>Server Group ID</source>
        <translation>Servergruppen-ID</translation>
    </message>
    <message>
        <source>Server ID</source>
        <translation>Server-ID</translation>
    </message>
    <message>
        <source>Server UID</source>
        <translation>Server-UID</translation>
    </message>
    <message>
        <source>Channel ID</source>
        <translation>Kanal-ID</translation>
    </message>
    <message>
        <source>Sort ID</source>
        <translation>Sortier-ID</translation>
    </message>
    <message>
        <source>Channel Unique ID</source>
        <translation>Eindeutige Kanal-ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Server Name</source>
        <translation>Servername</translation>
    </message>
    <message>
        <source>Is Valid</source>
        <translation>Gültig</translation>
    </message>
    <message>
        <source>Is Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Is Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Is Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Is Talkback</source>
        <translation>Gegensprechen</translation>
    </message>
    <message>
        <source>Is Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Has PTZF</source>
        <translation>Mit PTZF</translation>
    </message>
    <message>
        <source>Track Count</source>
        <translation>Anzahl Spuren</translation>
    </message>
    <message>
        <source>Channel Unique ID MetaType</source>
        <translation>Metatyp der eindeutigen Kanal-ID</translation>
    </message>
</context>
<context>
    <name>orrin::QmlServerGroupModel</name>
    <message>
        <source>Server Group ID</source>
        <translation>Servergruppen-ID</translation>
    </message>
    <message>
        <source>Hosts</source>
        <translation>Hosts</translation>
    </message>
</context>
<context>
    <name>orrin::QmlServerModel</name>
    <message>
        <source>Server Group ID</source>
        <translation>Servergruppen-ID</translation>
    </message>
    <message>
        <source>Server ID</source>
        <translation>Server-ID</translation>
    </message>
    <message>
        <source>Server Unique ID</source>
        <translation>Eindeutige Server-ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>IP</source>
        <translation>IP</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Host</translation>
    </message>
    <message>
        <source>Camera count</source>
        <translation>Anzahl Kameras</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Major version</source>
        <translation>Hauptversion</translation>
    </message>
    <message>
        <source>Minor version</source>
        <translation>Nebenversion</translation>
    </message>
    <message>
        <source>Buid version</source>
        <translation>Build-Version</translation>
    </message>
    <message>
        <source>User ID</source>
        <translation>Benutzer-ID</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>User level</source>
        <translation>Benutzerstufe</translation>
    </message>
</context>
<context>
    <name>orrin::QmlTrackModel</name>
    <message>
        <source>Server Group ID</source>
        <translation>Servergruppen-ID</translation>
    </message>
    <message>
        <source>Server ID</source>
        <translation>Server-ID</translation>
    </message>
    <message>
        <source>Channel ID</source>
        <translation>Kanal-ID</translation>
    </message>
    <message>
        <source>Track ID</source>
        <translation>Spur-ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Is enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
</context>
<context>
    <name>orrin::QmlVideoPlaybackController</name>
    <message>
        <source>Couldn&apos;t save image</source>
        <translation>Bild konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Couldn&apos;t write file to </source>
        <comment>Example: Couldn&apos;t write file to c:images</comment>
        <translation>Datei konnte nicht geschrieben werden nach </translation>
    </message>
</context>
<context>
    <name>orrin::Statistics</name>
    <message>
        <source>Recorder status</source>
        <translation>Status des Rekorders</translation>
    </message>
    <message>
        <source>Storage in use</source>
        <translation>Belegter Speicher</translation>
    </message>
    <message>
        <source>Storage free</source>
        <translation>Freier Speicher</translation>
    </message>
    <message>
        <source>Processor load</source>
        <translation>Prozessorlast</translation>
    </message>
    <message>
        <source>Clock offset to the time server</source>
        <translation>Abweichung der Uhr vom Zeitserver</translation>
    </message>
    <message>
        <source>Stratum of the clock</source>
        <translation>Stratum der Uhr</translation>
    </message>
    <message>
        <source>Network %1: sent</source>
        <translation>Netzwerk %1: gesendet</translation>
    </message>
    <message>
        <source>Network %1: received</source>
        <translation>Netzwerk %1: empfangen</translation>
    </message>
    <message>
        <source>Network %1: errors</source>
        <translation>Netzwerk %1: Fehler</translation>
    </message>
    <message>
        <source>Network %1: packets dropped</source>
        <translation>Netzwerk %1: verworfene Pakete</translation>
    </message>
    <message>
        <source>Disk %1: status</source>
        <translation>Datenträger %1: Status</translation>
    </message>
    <message>
        <source>Disk %1: space in use</source>
        <translation>Datenträger %1: belegter Platz</translation>
    </message>
    <message>
        <source>Disk %1: temperature</source>
        <translation>Datenträger %1: Temperatur</translation>
    </message>
    <message>
        <source>Disk %1: data written</source>
        <translation>Datenträger %1: geschriebene Daten</translation>
    </message>
    <message>
        <source>Camera %1: status</source>
        <translation>Kamera %1: Status</translation>
    </message>
    <message>
        <source>Camera %1: data received</source>
        <translation>Kamera %1: empfangene Daten</translation>
    </message>
    <message>
        <source>Camera %1: pictures rejected</source>
        <translation>Kamera %1: abgewiesene Bilder</translation>
    </message>
    <message>
        <source>Camera %1: interval jitter</source>
        <translation>Kamera %1: Schwankung der Bildabstände</translation>
    </message>
    <message>
        <source>Camera %1, track %2: data recorded</source>
        <translation>Kamera %1, Spur %2: aufgezeichnete Daten</translation>
    </message>
    <message>
        <source>Camera %1, track %2: pictures dropped</source>
        <translation>Kamera %1, Spur %2: verworfene Bilder</translation>
    </message>
    <message>
        <source>Camera %1, track %2: pictures recorded</source>
        <translation>Kamera %1, Spur %2: aufgezeichnete Bilder</translation>
    </message>
    <message>
        <source>Sensor %1: temperature</source>
        <translation>Sensor %1: Temperatur</translation>
    </message>
    <message>
        <source>Sensor %1: voltage</source>
        <translation>Sensor %1: Spannung</translation>
    </message>
    <message>
        <source>Sensor %1: power</source>
        <translation>Sensor %1: Leistung</translation>
    </message>
    <message>
        <source>Camera %1, shown here: pictures</source>
        <translation>Kamera %1, hier angezeigt: Bilder</translation>
    </message>
    <message>
        <source>Camera %1, shown here: data received</source>
        <translation>Kamera %1, hier angezeigt: empfangene Daten</translation>
    </message>
    <message>
        <source>Camera %1, shown here: delay</source>
        <translation>Kamera %1, hier angezeigt: Verzögerung</translation>
    </message>
    <message>
        <source>Camera %1, shown here: packets lost</source>
        <translation>Kamera %1, hier angezeigt: verlorene Pakete</translation>
    </message>
    <message>
        <source>Camera %1, shown here: connections begun anew</source>
        <translation>Kamera %1, hier angezeigt: neue Verbindungen</translation>
    </message>
    <message>
        <source>Processor %1: load</source>
        <translation>Prozessor %1: Last</translation>
    </message>
    <message>
        <source>Fan %1: speed</source>
        <translation>Lüfter %1: Drehzahl</translation>
    </message>
    <message>
        <source>Power supply %1</source>
        <translation>Netzteil %1</translation>
    </message>
</context>
<context>
    <name>orrin::StatsModel</name>
    <message>
        <source>No statistics are asked for</source>
        <translation>Keine Statistik angefordert</translation>
    </message>
    <message>
        <source>Loading statistics…</source>
        <translation>Statistik wird geladen…</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>There are no statistics for this time</source>
        <translation>Für diese Zeit gibt es keine Statistik</translation>
    </message>
    <message>
        <source>The server is not connected</source>
        <translation>Der Server ist nicht verbunden</translation>
    </message>
    <message>
        <source>You may not see the statistics of this server</source>
        <translation>Sie dürfen die Statistik dieses Servers nicht sehen</translation>
    </message>
    <message>
        <source>The server does not answer</source>
        <translation>Der Server antwortet nicht</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Time (ms)</source>
        <translation>Zeit (ms)</translation>
    </message>
</context>
<context>
    <name>orrin::StatsQmlHelper</name>
    <message>
        <source>Standby2</source>
        <translation>Bereitschaft 2</translation>
    </message>
    <message>
        <source>Standby</source>
        <translation>Bereitschaft</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Störung</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Not recording</source>
        <translation>Keine Aufzeichnung</translation>
    </message>
    <message>
        <source>Restart</source>
        <translation>Neustart</translation>
    </message>
    <message>
        <source>Not formatted</source>
        <translation>Nicht formatiert</translation>
    </message>
    <message>
        <source>Formatted</source>
        <translation>Formatiert</translation>
    </message>
    <message>
        <source>Degraded</source>
        <translation>Eingeschränkt</translation>
    </message>
    <message>
        <source>Foreign</source>
        <translation>Fremd</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Ausgefallen</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>Rebuilding</source>
        <translation>Wird wiederhergestellt</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>Schreibgeschützt</translation>
    </message>
    <message>
        <source>Good</source>
        <translation>In Ordnung</translation>
    </message>
    <message>
        <source>No Stream</source>
        <translation>Kein Stream</translation>
    </message>
    <message>
        <source>Connected/Starting</source>
        <translation>Verbunden/Startet</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Wird verbunden</translation>
    </message>
    <message>
        <source>Configuring</source>
        <translation>Wird konfiguriert</translation>
    </message>
    <message>
        <source>Net problem</source>
        <translation>Netzwerkproblem</translation>
    </message>
    <message>
        <source>Check log</source>
        <translation>Protokoll prüfen</translation>
    </message>
    <message>
        <source>Awaiting restart</source>
        <translation>Wartet auf Neustart</translation>
    </message>
    <message>
        <source>Stream fail</source>
        <translation>Streamfehler</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Unauthorized</source>
        <translation>Nicht berechtigt</translation>
    </message>
    <message>
        <source>Initializing</source>
        <translation>Wird initialisiert</translation>
    </message>
    <message>
        <source>Video Loss</source>
        <translation>Videoverlust</translation>
    </message>
    <message>
        <source>Not Permitted</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>Bad</source>
        <translation>Schlecht</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>orrin::StreamProcessor</name>
    <message>
        <source>The server does not answer.</source>
        <translation>Der Server antwortet nicht.</translation>
    </message>
    <message>
        <source>The server is not connected.</source>
        <translation>Der Server ist nicht verbunden.</translation>
    </message>
</context>
<context>
    <name>orrin::StreamSource</name>
    <message>
        <source>The server ended the stream.</source>
        <translation>Der Server hat den Stream beendet.</translation>
    </message>
</context>
<context>
    <name>orrin::SubtitleValues</name>
    <message>
        <source>%1 d %2</source>
        <extracomment>Days and a time of day by which a picture lies behind: &quot;3 d 04:05:06&quot;.</extracomment>
        <translation>%1 T %2</translation>
    </message>
    <message>
        <source>LIVE</source>
        <translation>LIVE</translation>
    </message>
    <message>
        <source>PLAY</source>
        <translation>WIEDERGABE</translation>
    </message>
    <message>
        <source>PAUSED</source>
        <translation>PAUSE</translation>
    </message>
    <message>
        <source>FRAME</source>
        <translation>EINZELBILD</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>AUFN</translation>
    </message>
    <message>
        <source>FORWARD</source>
        <translation>VORLAUF</translation>
    </message>
    <message>
        <source>REWIND</source>
        <translation>RÜCKLAUF</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <extracomment>Frames per second: &quot;25 fps&quot;.</extracomment>
        <translation>%1 B/s</translation>
    </message>
    <message>
        <source>sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>key frame</source>
        <translation>Schlüsselbild</translation>
    </message>
    <message>
        <source>frame</source>
        <translation>Bild</translation>
    </message>
</context>
<context>
    <name>orrin::replay::ReplayPlayer</name>
    <message>
        <source>The server plays another time than it was asked for.</source>
        <translation>Der Server spielt eine andere Zeit ab als angefordert.</translation>
    </message>
    <message>
        <source>Nothing is recorded.</source>
        <translation>Es ist nichts aufgezeichnet.</translation>
    </message>
</context>
<context>
    <name>orrin::rtsp::Client</name>
    <message>
        <source>The server answers with status %1.</source>
        <translation>Der Server antwortet mit Status %1.</translation>
    </message>
    <message>
        <source>The server does not answer.</source>
        <translation>Der Server antwortet nicht.</translation>
    </message>
    <message>
        <source>What the server sends cannot be read.</source>
        <translation>Die Daten des Servers sind nicht lesbar.</translation>
    </message>
    <message>
        <source>The server ended the session.</source>
        <translation>Der Server hat die Sitzung beendet.</translation>
    </message>
    <message>
        <source>The server describes no stream.</source>
        <translation>Der Server beschreibt keinen Stream.</translation>
    </message>
    <message>
        <source>The server offers no codec that can be played.</source>
        <translation>Der Server bietet keinen Codec an, der wiedergegeben werden kann.</translation>
    </message>
    <message>
        <source>The server opens no session.</source>
        <translation>Der Server öffnet keine Sitzung.</translation>
    </message>
    <message>
        <source>The server offers no transport over the connection.</source>
        <translation>Der Server bietet keine Übertragung über die Verbindung an.</translation>
    </message>
    <message>
        <source>The server sends no pictures.</source>
        <translation>Der Server sendet keine Bilder.</translation>
    </message>
</context>
<context>
    <name>orrin::rtsp::Connection</name>
    <message>
        <source>The server does not answer.</source>
        <translation>Der Server antwortet nicht.</translation>
    </message>
</context>
</TS>
