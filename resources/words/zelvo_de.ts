<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ActionSearchRow</name>
    <message>
        <source>to be held</source>
        <translation>gedrückt halten</translation>
    </message>
</context>
<context>
    <name>ActionSearchView</name>
    <message>
        <source>Search actions</source>
        <translation>Aktionen suchen</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>No action has this name</source>
        <translation>Keine Aktion heißt so</translation>
    </message>
</context>
<context>
    <name>ActionTip</name>
    <message>
        <source>hold %1</source>
        <translation>%1 halten</translation>
    </message>
</context>
<context>
    <name>ActionsMenu</name>
    <message>
        <source>Groups of actions</source>
        <translation>Gruppen von Aktionen</translation>
    </message>
</context>
<context>
    <name>AlbumList</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Unbekanntes Album</translation>
    </message>
</context>
<context>
    <name>AudioEditor</name>
    <message>
        <source>Choose the music</source>
        <translation>Musik wählen</translation>
    </message>
</context>
<context>
    <name>AudioTimeline</name>
    <message>
        <source>Import a song, or drop one on the window</source>
        <translation>Importieren Sie einen Titel, oder ziehen Sie einen auf das Fenster</translation>
    </message>
</context>
<context>
    <name>ColorPicker</name>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Former color %1</source>
        <translation>Vorherige Farbe %1</translation>
    </message>
    <message>
        <source>New color %1</source>
        <translation>Neue Farbe %1</translation>
    </message>
    <message>
        <source>Pixel %1</source>
        <translation>Pixel %1</translation>
    </message>
</context>
<context>
    <name>ColorStrip</name>
    <message>
        <source>Color %1</source>
        <translation>Farbe %1</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
</context>
<context>
    <name>DocumentDialogs</name>
    <message>
        <source>Open a Document</source>
        <translation>Ein Dokument öffnen</translation>
    </message>
    <message>
        <source>Zelvo documents (*.zelvo *.json)</source>
        <translation>Zelvo-Dokumente (*.zelvo *.json)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save the Document</source>
        <translation>Das Dokument speichern</translation>
    </message>
    <message>
        <source>Zelvo documents (*.zelvo)</source>
        <translation>Zelvo-Dokumente (*.zelvo)</translation>
    </message>
    <message>
        <source>Collect Media: choose where the folder goes</source>
        <translation>Medien sammeln: wohin der Ordner kommt</translation>
    </message>
</context>
<context>
    <name>DocumentMenu</name>
    <message>
        <source>Recent</source>
        <translation>Zuletzt benutzt</translation>
    </message>
</context>
<context>
    <name>EmptyMusic</name>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
</context>
<context>
    <name>Export</name>
    <message>
        <source>Cancel the export</source>
        <translation>Export abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>ExportRing</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>ExportSettings</name>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Width x height</source>
        <translation>Breite x Höhe</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualität</translation>
    </message>
    <message>
        <source>Motion blur</source>
        <translation>Bewegungsunschärfe</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen…</translation>
    </message>
    <message>
        <source>Choose the folder of the movie</source>
        <translation>Ordner für den Film wählen</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
</context>
<context>
    <name>FontImport</name>
    <message>
        <source>Import Fonts</source>
        <translation>Schriften importieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Howto</source>
        <translation>So geht’s</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>No imported fonts</source>
        <translation>Keine importierten Schriften</translation>
    </message>
    <message>
        <source>Press “Import”, or drop fonts or a ZIP archive here.</source>
        <translation>„Importieren“ drücken, oder Schriften oder ein ZIP-Archiv hierher ziehen.</translation>
    </message>
</context>
<context>
    <name>FontImporter</name>
    <message>
        <source>%1 Font(s) installed</source>
        <translation>%1 Schrift(en) installiert</translation>
    </message>
    <message>
        <source>Do you want to install %1 fonts?</source>
        <translation>Möchten Sie %1 Schriften installieren?</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Unsupported file.</source>
        <translation>Diese Datei wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>There is a font named “%1” already.</source>
        <translation>Es gibt schon eine Schrift mit dem Namen „%1“.</translation>
    </message>
    <message>
        <source>No Fonts Found</source>
        <translation>Keine Schriften gefunden</translation>
    </message>
    <message>
        <source>Already there: %1</source>
        <translation>Schon vorhanden: %1</translation>
    </message>
</context>
<context>
    <name>FontListPopup</name>
    <message>
        <source>All fonts</source>
        <translation>Alle Schriften</translation>
    </message>
</context>
<context>
    <name>FontListView</name>
    <message>
        <source>Search fonts</source>
        <translation>Schriften suchen</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>Schriften</translation>
    </message>
    <message>
        <source>No font has this name</source>
        <translation>Keine Schrift heißt so</translation>
    </message>
</context>
<context>
    <name>FontRow</name>
    <message>
        <source>This font has crashed Zelvo. It is shown without a bevel.</source>
        <translation>Mit dieser Schrift ist Zelvo abgestürzt. Sie erscheint ohne Fase.</translation>
    </message>
</context>
<context>
    <name>FontStrip</name>
    <message>
        <source>Fonts</source>
        <translation>Schriften</translation>
    </message>
</context>
<context>
    <name>FuncButton</name>
    <message>
        <source>to be held</source>
        <translation>gedrückt halten</translation>
    </message>
</context>
<context>
    <name>HexField</name>
    <message>
        <source>Hex</source>
        <translation>Hex</translation>
    </message>
    <message>
        <source>This is no color.</source>
        <translation>Das ist keine Farbe.</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>No actions</source>
        <translation>Keine Aktionen</translation>
    </message>
    <message>
        <source>Put Back</source>
        <translation>Zurückholen</translation>
    </message>
</context>
<context>
    <name>ImportDialog</name>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
</context>
<context>
    <name>KeyList</name>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
</context>
<context>
    <name>LayouterMenu</name>
    <message>
        <source>What to style</source>
        <translation>Was gestaltet wird</translation>
    </message>
</context>
<context>
    <name>LoadingNotice</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Give up</source>
        <translation>Aufgeben</translation>
    </message>
</context>
<context>
    <name>MainBars</name>
    <message>
        <source>Put Back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Panel</source>
        <translation>Bereich</translation>
    </message>
</context>
<context>
    <name>ObjectImport</name>
    <message>
        <source>Imported Objects</source>
        <translation>Importierte Objekte</translation>
    </message>
</context>
<context>
    <name>ObjectImportRow</name>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Info about %1</source>
        <translation>Info über %1</translation>
    </message>
</context>
<context>
    <name>ObjectInfo</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>ObjectList</name>
    <message>
        <source>Import Objects</source>
        <translation>Objekte importieren</translation>
    </message>
    <message>
        <source>Imported Objects</source>
        <translation>Importierte Objekte</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Howto</source>
        <translation>So geht’s</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>No imported objects</source>
        <translation>Keine importierten Objekte</translation>
    </message>
    <message>
        <source>Press “Import”, or drop a USDZ, OBJ, glTF or STL file here, a folder, or a ZIP archive.</source>
        <translation>„Importieren“ drücken, oder eine USDZ-, OBJ-, glTF- oder STL-Datei, einen Ordner oder ein ZIP-Archiv hierher ziehen.</translation>
    </message>
</context>
<context>
    <name>PictureDialog</name>
    <message>
        <source>Import a Picture</source>
        <translation>Bild importieren</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
</context>
<context>
    <name>PressMarks</name>
    <message>
        <source>Recorded actions</source>
        <translation>Aufgenommene Aktionen</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close the preview</source>
        <translation>Vorschau schließen</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>Teilen</translation>
    </message>
</context>
<context>
    <name>PreviewControls</name>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Stelle im Film</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>The movie is at %1</source>
        <translation>Der Film liegt in %1</translation>
    </message>
</context>
<context>
    <name>RenameField</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>Save a Copy</source>
        <translation>Kopie speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Movies (*.mov *.mp4 *.webm)</source>
        <translation>Filme (*.mov *.mp4 *.webm)</translation>
    </message>
</context>
<context>
    <name>SectionIndex</name>
    <message>
        <source>Letters of the albums</source>
        <translation>Anfangsbuchstaben der Alben</translation>
    </message>
</context>
<context>
    <name>SharePanel</name>
    <message>
        <source>Share</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Open in Player</source>
        <translation>Im Player öffnen</translation>
    </message>
    <message>
        <source>Show Folder</source>
        <translation>Ordner zeigen</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Save a Copy…</source>
        <translation>Kopie speichern…</translation>
    </message>
</context>
<context>
    <name>SongList</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>SpeedStrip</name>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
</context>
<context>
    <name>Stage</name>
    <message>
        <source>The stage</source>
        <translation>Die Bühne</translation>
    </message>
</context>
<context>
    <name>StripView</name>
    <message>
        <source>Choices</source>
        <translation>Auswahl</translation>
    </message>
</context>
<context>
    <name>SwipeRow</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
</context>
<context>
    <name>Templates</name>
    <message>
        <source>New movie</source>
        <translation>Neuer Film</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Templates</source>
        <translation>Vorlagen</translation>
    </message>
</context>
<context>
    <name>TimeBar</name>
    <message>
        <source>Time of the run</source>
        <translation>Zeit des Laufs</translation>
    </message>
</context>
<context>
    <name>TimePicker</name>
    <message>
        <source>Minutes</source>
        <translation>Minuten</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>Min</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>Sec</source>
        <translation>Sek</translation>
    </message>
</context>
<context>
    <name>Timeline</name>
    <message>
        <source>Time line</source>
        <translation>Zeitleiste</translation>
    </message>
</context>
<context>
    <name>TimelineMenu</name>
    <message>
        <source>Selected actions</source>
        <translation>Ausgewählte Aktionen</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
</context>
<context>
    <name>TransformPanel</name>
    <message>
        <source>What to change</source>
        <translation>Was geändert wird</translation>
    </message>
</context>
<context>
    <name>VideoAlert</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>WritingField</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ActionsMenu</name>
    <message>
        <source>Speed and objects</source>
        <translation>Tempo und Objekte</translation>
    </message>
    <message>
        <source>More actions</source>
        <translation>Weitere Aktionen</translation>
    </message>
    <message>
        <source>Search actions</source>
        <translation>Aktionen suchen</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::AlbumTableViewController</name>
    <message>
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
    <message>
        <source>Tunes</source>
        <translation>Stücke</translation>
    </message>
    <message>
        <source>%1 songs</source>
        <translation>%1 Titel</translation>
    </message>
    <message>
        <source>No song here can be used</source>
        <translation>Kein Titel ist verwendbar</translation>
    </message>
    <message>
        <source>No music found</source>
        <translation>Keine Musik gefunden</translation>
    </message>
    <message>
        <source>All songs in %1 are protected or not downloaded.</source>
        <translation>Alle Titel in %1 sind geschützt oder nicht geladen.</translation>
    </message>
    <message>
        <source>Put songs into %1, or choose a file.</source>
        <translation>Legen Sie Titel in %1, oder wählen Sie eine Datei.</translation>
    </message>
    <message>
        <source>Only importable titles are shown</source>
        <translation>Nur importierbare Titel werden gezeigt</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Unbekanntes Album</translation>
    </message>
    <message>
        <source>The song cannot be played.</source>
        <translation>Der Titel kann nicht abgespielt werden.</translation>
    </message>
    <message>
        <source>Titles that are </source>
        <translation>Titel, die</translation>
    </message>
    <message>
        <source>• downloaded to the device</source>
        <translation>• auf das Gerät geladen sind</translation>
    </message>
    <message>
        <source>• not from Apple Music</source>
        <translation>• nicht von Apple Music stammen</translation>
    </message>
    <message>
        <source>• not DRM-Protected</source>
        <translation>• nicht DRM-geschützt sind</translation>
    </message>
    <message>
        <source>Folders that cannot be read: %1</source>
        <translation>Ordner, die sich nicht lesen lassen: %1</translation>
    </message>
    <message>
        <source>The folder cannot be read</source>
        <translation>Der Ordner lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>Give yourself the right to read %1, or choose a file.</source>
        <translation>Geben Sie sich das Recht, %1 zu lesen, oder wählen Sie eine Datei.</translation>
    </message>
    <message>
        <source>Looking for music…</source>
        <translation>Musik wird gesucht…</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::Alerts</name>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::AudioImporter</name>
    <message>
        <source>The music cannot be imported.</source>
        <translation>Die Musik kann nicht importiert werden.</translation>
    </message>
    <message>
        <source>Music and videos (%1)</source>
        <translation>Musik und Videos (%1)</translation>
    </message>
    <message>
        <source>Music (%1)</source>
        <translation>Musik (%1)</translation>
    </message>
    <message>
        <source>Videos (%1)</source>
        <translation>Videos (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Copying %1…</source>
        <translation>%1 wird kopiert…</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::AudioViewController</name>
    <message>
        <source>No Fade</source>
        <translation>Keine Blende</translation>
    </message>
    <message>
        <source>Fade In</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Fade Out</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Fade In+Out</source>
        <translation>Ein- und ausblenden</translation>
    </message>
    <message>
        <source>Choose the music</source>
        <translation>Musik wählen</translation>
    </message>
    <message>
        <source>Remove the music</source>
        <translation>Musik entfernen</translation>
    </message>
    <message>
        <source>Stop the music</source>
        <translation>Musik anhalten</translation>
    </message>
    <message>
        <source>Play the music</source>
        <translation>Musik abspielen</translation>
    </message>
    <message>
        <source>Remove Audio?</source>
        <translation>Musik entfernen?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The music is gone.</source>
        <translation>Die Musik ist nicht mehr da.</translation>
    </message>
    <message>
        <source>“%1” was moved or deleted. The movie stays silent until you choose other music.</source>
        <translation>„%1“ wurde verschoben oder gelöscht. Der Film bleibt stumm, bis Sie andere Musik wählen.</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>from ...</source>
        <translation>aus …</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Record actions on the beats of the music</source>
        <translation>Aktionen auf die Schläge der Musik aufnehmen</translation>
    </message>
    <message>
        <source>Actions on beats</source>
        <translation>Aktionen auf den Schlägen</translation>
    </message>
    <message>
        <source>Actions at any time</source>
        <translation>Aktionen zu jeder Zeit</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::BrightnessPickerView</name>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ColorPipette</name>
    <message>
        <source>Pick a color from the stage</source>
        <translation>Farbe von der Bühne aufnehmen</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ControlMenu</name>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Delete all</source>
        <translation>Alles löschen</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Delete all recorded actions?</source>
        <translation>Alle aufgenommenen Aktionen löschen?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::DocumentController</name>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>Unsaved changes are not protected: %1</source>
        <translation>Ungespeicherte Änderungen sind nicht geschützt: %1</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>Die Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>Otherwise they are lost.</source>
        <translation>Sonst gehen sie verloren.</translation>
    </message>
    <message>
        <source>Don&apos;t Save</source>
        <translation>Nicht speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>“%1” cannot be opened.</source>
        <translation>„%1“ kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Some things of this document are missing.</source>
        <translation>Einiges von diesem Dokument fehlt.</translation>
    </message>
    <message>
        <source>Their names are kept when you save it.</source>
        <translation>Die Namen bleiben erhalten, wenn Sie es speichern.</translation>
    </message>
    <message>
        <source>The document cannot be saved.</source>
        <translation>Das Dokument kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>an untitled document</source>
        <translation>ein Dokument ohne Titel</translation>
    </message>
    <message>
        <source>It cannot be recovered.</source>
        <translation>Es kann nicht wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>Recover unsaved changes?</source>
        <translation>Ungespeicherte Änderungen wiederherstellen?</translation>
    </message>
    <message>
        <source>Zelvo ended before they were saved: %1.</source>
        <translation>Zelvo endete, bevor sie gespeichert waren: %1.</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>“%1” was changed elsewhere.</source>
        <translation>„%1“ wurde anderswo geändert.</translation>
    </message>
    <message>
        <source>Another window or program has written it since it was opened here.</source>
        <translation>Ein anderes Fenster oder Programm hat es geschrieben, seit es hier geöffnet wurde.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>New…</source>
        <translation>Neu…</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Öffnen…</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
    <message>
        <source>Collect Media…</source>
        <translation>Medien sammeln…</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>%1 wird geöffnet…</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::Dragger</name>
    <message>
        <source>Start of the music, at %1 of the song</source>
        <translation>Anfang der Musik, bei %1 des Titels</translation>
    </message>
    <message>
        <source>End of the music, at %1 of the song</source>
        <translation>Ende der Musik, bei %1 des Titels</translation>
    </message>
    <message>
        <source>Music, from %1 of the movie</source>
        <translation>Musik, ab %1 des Films</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::DropTarget</name>
    <message>
        <source>Drop it to use it as the image</source>
        <translation>Loslassen, um es als Bild zu verwenden</translation>
    </message>
    <message>
        <source>Drop to import fonts</source>
        <translation>Loslassen, um Schriften zu importieren</translation>
    </message>
    <message>
        <source>This is a link. Save the picture as a file first.</source>
        <translation>Das ist ein Link. Das Bild zuerst als Datei speichern.</translation>
    </message>
    <message>
        <source>Drop it to use it as the object</source>
        <translation>Loslassen, um es als Objekt zu verwenden</translation>
    </message>
    <message>
        <source>Drop to import fonts or 3D objects</source>
        <translation>Loslassen, um Schriften oder 3D-Objekte zu importieren</translation>
    </message>
    <message>
        <source>Drop it to use it as the music</source>
        <translation>Loslassen, um es als Musik zu verwenden</translation>
    </message>
    <message>
        <source>Only pictures, videos, music, 3D objects, fonts and ZIP archives can be opened</source>
        <translation>Nur Bilder, Videos, Musik, 3D-Objekte, Schriften und ZIP-Archive können geöffnet werden</translation>
    </message>
    <message>
        <source>Drop to open the document</source>
        <translation>Loslassen, um das Dokument zu öffnen</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ExportSettingsController</name>
    <message>
        <source>PNG Pictures</source>
        <translation>PNG-Bilder</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Quadrat</translation>
    </message>
    <message>
        <source>Upright</source>
        <translation>Hochkant</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Finest</source>
        <translation>Feinste</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>%1 moments</source>
        <translation>%1 Momente</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Bühne</translation>
    </message>
    <message>
        <source>Transparent</source>
        <translation>Transparent</translation>
    </message>
    <message>
        <source>The size must be like 1920x1080, both sides even and from %1 to %2.</source>
        <translation>Die Größe muss wie 1920x1080 sein, beide Seiten gerade und von %1 bis %2.</translation>
    </message>
    <message>
        <source>Enter a name.</source>
        <translation>Geben Sie einen Namen ein.</translation>
    </message>
    <message>
        <source>This name cannot be used: it must be short, without slashes, and not begin with a dot.</source>
        <translation>Dieser Name geht nicht: Er muss kurz sein, ohne Schrägstriche, und darf nicht mit einem Punkt beginnen.</translation>
    </message>
    <message>
        <source>Will be saved as %1</source>
        <translation>Wird gespeichert als %1</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ExportViewController</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Preparing</source>
        <translation>Vorbereitung</translation>
    </message>
    <message>
        <source>Recording the movie</source>
        <translation>Film wird aufgenommen</translation>
    </message>
    <message>
        <source>Saving the movie</source>
        <translation>Film wird gespeichert</translation>
    </message>
    <message>
        <source>The movie could not be made</source>
        <translation>Der Film konnte nicht erstellt werden</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message>
        <source>The pictures are saved</source>
        <translation>Die Bilder sind gespeichert</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::FileSystem</name>
    <message>
        <source>There is no such file.</source>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>This is not a file.</source>
        <translation>Das ist keine Datei.</translation>
    </message>
    <message>
        <source>Links cannot be opened.</source>
        <translation>Links lassen sich nicht öffnen.</translation>
    </message>
    <message>
        <source>Save the picture as a file. Then drop the file here.</source>
        <translation>Das Bild als Datei speichern, dann die Datei hierher ziehen.</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::FontImportViewController</name>
    <message>
        <source>Imported Fonts (%1)</source>
        <translation>Importierte Schriften (%1)</translation>
    </message>
    <message>
        <source>Fonts and archives (%1)</source>
        <translation>Schriften und Archive (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>You can install fonts easily with Safari / Mail using the integrated &apos;open in / share&apos; service.</source>
        <translation>Schriften lassen sich leicht aus Safari / Mail installieren, über „Öffnen in / Teilen“.</translation>
    </message>
    <message>
        <source>OTF (OpenType Format) and TTF (TrueType Format) fonts are supported, even when zipped.</source>
        <translation>OTF (OpenType Format) und TTF (TrueType Format) werden unterstützt, auch in einem ZIP-Archiv.</translation>
    </message>
    <message>
        <source>NOTE: Before you install / use a font, make sure you have the proper license for it.</source>
        <translation>HINWEIS: Bevor Sie eine Schrift installieren oder verwenden, vergewissern Sie sich, dass Sie die Lizenz dafür haben.</translation>
    </message>
    <message>
        <source>How to install fonts</source>
        <translation>So werden Schriften installiert</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::FontList</name>
    <message>
        <source>Fonts of the system</source>
        <translation>Schriften des Systems</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::FontStrip</name>
    <message>
        <source>All fonts</source>
        <translation>Alle Schriften</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::FormPanel</name>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>Bevel</source>
        <translation>Fase</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Rund</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Gerade</translation>
    </message>
    <message>
        <source>Fill w. Sidecol.</source>
        <translation>Füllung: Seite</translation>
    </message>
    <message>
        <source>Fill w. Frontcol.</source>
        <translation>Füllung: Front</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::Guidance</name>
    <message>
        <source>Not recorded: start the clock with Space, then press</source>
        <translation>Nicht aufgenommen: erst die Uhr mit der Leertaste starten, dann drücken</translation>
    </message>
    <message>
        <source>Press Space, then the buttons while the clock runs</source>
        <translation>Leertaste drücken, dann die Knöpfe, während die Uhr läuft</translation>
    </message>
    <message>
        <source>Style the stage, then go to Actions to perform</source>
        <translation>Die Bühne gestalten, dann unter Aktionen aufführen</translation>
    </message>
    <message>
        <source>Not recorded: this run only plays. Space stops it and records</source>
        <translation>Nicht aufgenommen: Dieser Lauf spielt nur ab. Leertaste hält ihn an und nimmt auf</translation>
    </message>
    <message>
        <source>All actions are deleted</source>
        <translation>Alle Aktionen sind gelöscht</translation>
    </message>
    <message>
        <source>Actions are deleted</source>
        <translation>Aktionen sind gelöscht</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::Help</name>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Start and stop a run</source>
        <translation>Einen Lauf starten und anhalten</translation>
    </message>
    <message>
        <source>Press the buttons of the tab</source>
        <translation>Die Knöpfe des Reiters drücken</translation>
    </message>
    <message>
        <source>Previous tab, next tab</source>
        <translation>Voriger Reiter, nächster Reiter</translation>
    </message>
    <message>
        <source>Speeds, and who takes part</source>
        <translation>Tempo, und wer mitmacht</translation>
    </message>
    <message>
        <source>Undo, redo</source>
        <translation>Rückgängig, wiederholen</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Export a movie</source>
        <translation>Einen Film exportieren</translation>
    </message>
    <message>
        <source>New document, open</source>
        <translation>Neues Dokument, öffnen</translation>
    </message>
    <message>
        <source>Save, save as</source>
        <translation>Speichern, speichern unter</translation>
    </message>
    <message>
        <source>A random style</source>
        <translation>Ein zufälliger Stil</translation>
    </message>
    <message>
        <source>Select the next text, image or object</source>
        <translation>Den nächsten Text, das Bild oder Objekt wählen</translation>
    </message>
    <message>
        <source>Move it; with Shift in large steps</source>
        <translation>Es bewegen; mit Umschalt in großen Schritten</translation>
    </message>
    <message>
        <source>Make it smaller, larger</source>
        <translation>Es kleiner, größer machen</translation>
    </message>
    <message>
        <source>Use the copied picture or file</source>
        <translation>Das kopierte Bild oder die Datei verwenden</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Close what is on top</source>
        <translation>Schließen, was oben liegt</translation>
    </message>
    <message>
        <source>Help and keys</source>
        <translation>Hilfe und Tasten</translation>
    </message>
    <message>
        <source>Find an action by its name</source>
        <translation>Aktion nach ihrem Namen suchen</translation>
    </message>
    <message>
        <source>Style, actions; again: to its tabs, then the arrow keys</source>
        <translation>Stil, Aktionen; noch einmal: zu den Reitern, dann die Pfeiltasten</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Write the text; choose another image</source>
        <translation>Den Text schreiben; ein anderes Bild wählen</translation>
    </message>
    <message>
        <source>Play and pause, without recording</source>
        <translation>Abspielen und anhalten, ohne aufzunehmen</translation>
    </message>
    <message>
        <source>← → (time line)</source>
        <translation>← → (Zeitleiste)</translation>
    </message>
    <message>
        <source>Move the playhead; with Shift by a second</source>
        <translation>Die Abspielmarke bewegen; mit Umschalt um eine Sekunde</translation>
    </message>
    <message>
        <source>↑ ↓ (time line)</source>
        <translation>↑ ↓ (Zeitleiste)</translation>
    </message>
    <message>
        <source>Choose an action; with Alt, ← and → move it</source>
        <translation>Eine Aktion wählen; mit Alt bewegen ← und → sie</translation>
    </message>
    <message>
        <source>+ − (time line)</source>
        <translation>+ − (Zeitleiste)</translation>
    </message>
    <message>
        <source>Hold it longer, shorter</source>
        <translation>Sie länger, kürzer halten</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::HuePickerView</name>
    <message>
        <source>Hue</source>
        <translation>Farbton</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::IdleTimer</name>
    <message>
        <source>A performance is being recorded</source>
        <translation>Eine Aufnahme läuft</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ImagePanel</name>
    <message>
        <source>Flip</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>Mirror left to right</source>
        <translation>Seitlich spiegeln</translation>
    </message>
    <message>
        <source>Mirror top to bottom</source>
        <translation>Senkrecht spiegeln</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Turn by a quarter</source>
        <translation>Um ein Viertel drehen</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Verbergen</translation>
    </message>
    <message>
        <source>Hide the image</source>
        <translation>Bild verbergen</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Show the image</source>
        <translation>Bild zeigen</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Choose a picture</source>
        <translation>Ein Bild auswählen</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::Inspirator</name>
    <message>
        <source>Inspirator: a random style</source>
        <translation>Inspirator: ein zufälliger Stil</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::KeyName</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::LayouterMenu</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Text 1</source>
        <translation>Text 1</translation>
    </message>
    <message>
        <source>Text 2</source>
        <translation>Text 2</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>No music</source>
        <translation>Keine Musik</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>Frontcolor</source>
        <translation>Vorne</translation>
    </message>
    <message>
        <source>Sidecolor</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Transform</source>
        <translation>Lage</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>Maske</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigenes</translation>
    </message>
    <message>
        <source>Import a 3D object</source>
        <translation>3D-Objekt importieren</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>from ...</source>
        <translation>aus …</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::MainMenu</name>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>Style the stage</source>
        <translation>Die Bühne gestalten</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>Perform actions</source>
        <translation>Aktionen aufführen</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::MainViewController</name>
    <message>
        <source>Export a movie</source>
        <translation>Film exportieren</translation>
    </message>
    <message>
        <source>No recorded actions</source>
        <translation>Keine aufgenommenen Aktionen</translation>
    </message>
    <message>
        <source>Before exporting a movie, you have to record at least one action.</source>
        <translation>Vor dem Export muss mindestens eine Aktion aufgenommen werden.</translation>
    </message>
    <message>
        <source>Howto</source>
        <translation>So geht’s</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Press the record button, then the buttons of the actions while the clock runs.</source>
        <translation>Den Aufnahmeknopf drücken, dann die Knöpfe der Aktionen, während die Uhr läuft.</translation>
    </message>
    <message>
        <source>There is no picture on the clipboard</source>
        <translation>In der Zwischenablage ist kein Bild</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>%1 cannot be read any more: the rest is silent</source>
        <translation>%1 lässt sich nicht mehr lesen: Der Rest ist stumm</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ObjInfo</name>
    <message>
        <source>Ambient texture: </source>
        <translation>Textur des Umgebungslichts: </translation>
    </message>
    <message>
        <source>Diffuse texture: </source>
        <translation>Textur der Farbe: </translation>
    </message>
    <message>
        <source>Specular color: </source>
        <translation>Farbe des Glanzes: </translation>
    </message>
    <message>
        <source>Specular highlight: </source>
        <translation>Stärke des Glanzes: </translation>
    </message>
    <message>
        <source>Alpha texture: </source>
        <translation>Textur der Deckkraft: </translation>
    </message>
    <message>
        <source>File: </source>
        <translation>Datei: </translation>
    </message>
    <message>
        <source>Wavefront .obj File: </source>
        <translation>Wavefront .obj, Datei: </translation>
    </message>
    <message>
        <source>Material template library: </source>
        <translation>Bibliothek der Materialien: </translation>
    </message>
    <message>
        <source>Universal Scene Description (Usdz) File:</source>
        <translation>Universal Scene Description (Usdz), Datei:</translation>
    </message>
    <message>
        <source>🚫 File not found.</source>
        <translation>🚫 Die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>🚫 Unknown error.</source>
        <translation>🚫 Unbekannter Fehler.</translation>
    </message>
    <message>
        <source>🚫 File %1 not found.</source>
        <translation>🚫 Die Datei %1 fehlt.</translation>
    </message>
    <message>
        <source>✅ File %1 is at its place.</source>
        <translation>✅ Die Datei %1 ist an ihrem Platz.</translation>
    </message>
    <message>
        <source>🚫 Couldn&apos;t read .mtl file.</source>
        <translation>🚫 Die .mtl-Datei lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>%1 image is referenced in the .mtl library:</source>
        <translation>%1 Bild wird in der .mtl-Bibliothek genannt:</translation>
    </message>
    <message>
        <source>%1 images are referenced in the .mtl library:</source>
        <translation>%1 Bilder werden in der .mtl-Bibliothek genannt:</translation>
    </message>
    <message>
        <source>✅ The image %1 is at its place.</source>
        <translation>✅ Das Bild %1 ist an seinem Platz.</translation>
    </message>
    <message>
        <source>⚠️ The image %1 is missing.</source>
        <translation>⚠️ Das Bild %1 fehlt.</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ObjectController</name>
    <message>
        <source>3D objects, their parts, archives (%1)</source>
        <translation>3D-Objekte, ihre Teile, Archive (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Zelvo lets you import USDZ &amp; Wavefront .obj files, their associated material .mtl files and thereby the import of textures in form of (png &amp; jpeg) images. Zip files are unzipped to the one main directory.</source>
        <translation>Mit Zelvo lassen sich USDZ- und Wavefront-.obj-Dateien importieren, die .mtl-Dateien mit ihren Materialien, und damit auch Texturen als Bilder (png und jpeg). Zip-Dateien werden in den einen gemeinsamen Ordner entpackt.</translation>
    </message>
    <message>
        <source>glTF, GLB and STL files can be imported as well. You can also drop files or a folder on the window.</source>
        <translation>Auch glTF-, GLB- und STL-Dateien lassen sich importieren. Dateien oder ein Ordner können auch auf das Fenster gezogen werden.</translation>
    </message>
    <message>
        <source>Does an object not look as it should? Send its files, with a picture of what you expect, to the people from whom you have Zelvo.</source>
        <translation>Sieht ein Objekt nicht so aus, wie es soll? Dann bitte seine Dateien, mit einem Bild davon, wie es aussehen soll, an die Leute schicken, von denen Sie Zelvo haben.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>USDZ &amp; Wavefront .obj</source>
        <translation>USDZ &amp; Wavefront .obj</translation>
    </message>
    <message>
        <source>3D Import</source>
        <translation>3D-Import</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ObjectImporter</name>
    <message>
        <source>Unsupported file type.</source>
        <translation>Diese Art von Datei wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>No 3D files found in ZIP</source>
        <translation>Keine 3D-Dateien im ZIP gefunden</translation>
    </message>
    <message>
        <source>Not everything could be imported</source>
        <translation>Nicht alles ließ sich importieren</translation>
    </message>
    <message>
        <source>The folder cannot be imported</source>
        <translation>Der Ordner lässt sich nicht importieren</translation>
    </message>
    <message>
        <source>No 3D files found in the folder</source>
        <translation>Keine 3D-Dateien im Ordner gefunden</translation>
    </message>
    <message>
        <source>This is no name for a file.</source>
        <translation>So kann eine Datei nicht heißen.</translation>
    </message>
    <message>
        <source>There is a file of this name already.</source>
        <translation>Es gibt schon eine Datei mit diesem Namen.</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ObjectInfoController</name>
    <message>
        <source>Loading … %1 %</source>
        <translation>Wird geladen … %1 %</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>Wird geladen…</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::ObjectLoading</name>
    <message>
        <source>The object cannot be opened.</source>
        <translation>Das Objekt lässt sich nicht öffnen.</translation>
    </message>
    <message>
        <source>%1 is not complete.</source>
        <translation>%1 ist nicht vollständig.</translation>
    </message>
    <message>
        <source>Loading %1…</source>
        <translation>%1 wird geladen…</translation>
    </message>
    <message>
        <source>Loading the pictures of %1…</source>
        <translation>Bilder von %1 werden geladen…</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::PictureImporter</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>The picture cannot be opened.</source>
        <translation>Das Bild lässt sich nicht öffnen.</translation>
    </message>
    <message>
        <source>Pictures and videos (%1)</source>
        <translation>Bilder und Videos (%1)</translation>
    </message>
    <message>
        <source>Videos (%1)</source>
        <translation>Videos (%1)</translation>
    </message>
    <message>
        <source>Pictures (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Loading %1…</source>
        <translation>%1 wird geladen…</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::PreviewViewController</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>%1 was not written: %2</source>
        <translation>%1 wurde nicht geschrieben: %2</translation>
    </message>
    <message>
        <source>This movie cannot be played here (%1). Choose Share, then Open in Player, to watch it.</source>
        <translation>Dieser Film lässt sich hier nicht abspielen (%1). Über „Teilen“ und „Im Player öffnen“ kann man ihn ansehen.</translation>
    </message>
    <message>
        <source>no decoder</source>
        <translation>kein Decoder</translation>
    </message>
    <message>
        <source>There is no movie here yet.</source>
        <translation>Hier ist noch kein Film.</translation>
    </message>
    <message>
        <source>No program was found to open %1.</source>
        <translation>Kein Programm gefunden, das %1 öffnet.</translation>
    </message>
    <message>
        <source>Path copied</source>
        <translation>Pfad kopiert</translation>
    </message>
    <message>
        <source>Copy saved</source>
        <translation>Kopie gespeichert</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::RecordButton</name>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::SaturationPickerView</name>
    <message>
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::SimpleColorPicker</name>
    <message>
        <source>More colors</source>
        <translation>Weitere Farben</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::SongsTableViewController</name>
    <message>
        <source>protected</source>
        <translation>geschützt</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>nicht geladen</translation>
    </message>
    <message>
        <source>Song Unavailable</source>
        <translation>Titel nicht verfügbar</translation>
    </message>
    <message>
        <source>This song is DRM protected and can&apos;t be used.</source>
        <translation>Dieser Titel ist DRM-geschützt und kann nicht verwendet werden.</translation>
    </message>
    <message>
        <source>Open its folder and choose Make Available Offline for this song.</source>
        <translation>Öffnen Sie den Ordner und machen Sie diesen Titel offline verfügbar.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::SpeedViewController</name>
    <message>
        <source>Slowest</source>
        <translation>Am langsamsten</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Langsamer</translation>
    </message>
    <message>
        <source>Slow</source>
        <translation>Langsam</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Schnell</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Schneller</translation>
    </message>
    <message>
        <source>Fastest</source>
        <translation>Am schnellsten</translation>
    </message>
    <message>
        <source>First text</source>
        <translation>Erster Text</translation>
    </message>
    <message>
        <source>Second text</source>
        <translation>Zweiter Text</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>Speed: %1</source>
        <translation>Tempo: %1</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::TemplateRows</name>
    <message>
        <source>Night</source>
        <translation>Nacht</translation>
    </message>
    <message>
        <source>Sport</source>
        <translation>Sport</translation>
    </message>
    <message>
        <source>Gaming</source>
        <translation>Gaming</translation>
    </message>
    <message>
        <source>Wedding</source>
        <translation>Hochzeit</translation>
    </message>
    <message>
        <source>News</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>Kids</source>
        <translation>Kinder</translation>
    </message>
    <message>
        <source>Horror</source>
        <translation>Horror</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Weltraum</translation>
    </message>
    <message>
        <source>Retro</source>
        <translation>Retro</translation>
    </message>
    <message>
        <source>Minimal</source>
        <translation>Minimal</translation>
    </message>
    <message>
        <source>Luxury</source>
        <translation>Luxus</translation>
    </message>
    <message>
        <source>Countdown</source>
        <translation>Countdown</translation>
    </message>
    <message>
        <source>Empty stage</source>
        <translation>Leere Bühne</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::TemplatesController</name>
    <message>
        <source>This template is missing. Install the program anew.</source>
        <translation>Diese Vorlage fehlt. Installieren Sie das Programm neu.</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::TimelineController</name>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play without recording</source>
        <translation>Abspielen, ohne aufzunehmen</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>held %1 s</source>
        <translation>%1 s gehalten</translation>
    </message>
    <message>
        <source>%1, at %2 seconds</source>
        <translation>%1, bei %2 Sekunden</translation>
    </message>
    <message>
        <source>Camera drag</source>
        <translation>Kamera gezogen</translation>
    </message>
    <message>
        <source>Camera pinch</source>
        <translation>Kamera gezoomt</translation>
    </message>
    <message>
        <source>Camera to the middle</source>
        <translation>Kamera zur Mitte</translation>
    </message>
    <message>
        <source>Actions: %1, selected: %2</source>
        <translation>Aktionen: %1, ausgewählt: %2</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>Ziehen</translation>
    </message>
    <message>
        <source>Pinch</source>
        <translation>Zoomen</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mitte</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::TimelineMenu</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste at the playhead</source>
        <translation>An der Abspielmarke einfügen</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Snap to beats</source>
        <translation>An Schlägen einrasten</translation>
    </message>
</context>
<context>
    <name>zelvo::ui::TransformPanel</name>
    <message>
        <source>Z Pos</source>
        <translation>Z-Pos</translation>
    </message>
    <message>
        <source>X Rot</source>
        <translation>X-Dreh</translation>
    </message>
    <message>
        <source>Y Rot</source>
        <translation>Y-Dreh</translation>
    </message>
    <message>
        <source>Z Rot</source>
        <translation>Z-Dreh</translation>
    </message>
</context>
</TS>
