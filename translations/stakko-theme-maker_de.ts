<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AboutWindow</name>
    <message>
        <source>Program code: the Stakko Theme Maker developers</source>
        <translation>Programmcode: die Entwickler von Stakko Theme Maker</translation>
    </message>
    <message>
        <source>Splash art: the Stakko artists</source>
        <translation>Startbild: die Künstler von Stakko</translation>
    </message>
    <message>
        <source>Version %1.%2.%3</source>
        <translation>Version %1.%2.%3</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>For the latest version of Stakko and Stakko Theme Maker, visit:</source>
        <translation>Die neueste Version von Stakko und Stakko Theme Maker finden Sie unter:</translation>
    </message>
</context>
<context>
    <name>AccessibleNames</name>
    <message>
        <source>Browse for %1</source>
        <translation>Durchsuchen: %1</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>a button&apos;s verb, then its row</comment>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>ArtImportCommand</name>
    <message>
        <source>&amp;Import Art...</source>
        <translation>Bildmaterial &amp;importieren...</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importieren...</translation>
    </message>
    <message>
        <source>Import for %1</source>
        <translation>Importieren: %1</translation>
    </message>
    <message>
        <source>Import art into %1: pictures, animations, sprite sheets, sounds</source>
        <translation>Bildmaterial nach %1 importieren: Bilder, Animationen, Bögen, Klänge</translation>
    </message>
    <message>
        <source>Importing the art...</source>
        <translation>Das Bildmaterial wird importiert...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Imported %1 files into %2</source>
        <translation>%1 Dateien nach %2 importiert</translation>
    </message>
    <message>
        <source>The game reads %1 as numbered bitmap or JPEG frames (%2 is not the first of them: its root would be cut from its name).

Import it instead, as frames of the game&apos;s size?</source>
        <translation>Das Spiel liest %1 als nummerierte Bitmap- oder JPEG-Einzelbilder (%2 ist nicht das erste davon: sein Stamm würde aus seinem Namen geschnitten).

Stattdessen importieren, als Einzelbilder in der Größe des Spiels?</translation>
    </message>
</context>
<context>
    <name>ArtImportDialog</name>
    <message>
        <source>Import Art</source>
        <translation>Bildmaterial importieren</translation>
    </message>
    <message>
        <source>&amp;Row:</source>
        <translation>&amp;Zeile:</translation>
    </message>
    <message>
        <source>&amp;Files...</source>
        <translation>&amp;Dateien...</translation>
    </message>
    <message>
        <source>F&amp;older...</source>
        <translation>&amp;Ordner...</translation>
    </message>
    <message>
        <source>&amp;Source:</source>
        <translation>&amp;Quelle:</translation>
    </message>
    <message>
        <source>Fill: cover, centre cut out</source>
        <translation>Füllen: bedecken, Mitte ausschneiden</translation>
    </message>
    <message>
        <source>Fit: inside, background around</source>
        <translation>Einpassen: innen, Hintergrund ringsum</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Strecken</translation>
    </message>
    <message>
        <source>Pixel: whole factor, hard edges</source>
        <translation>Pixel: ganzzahliger Faktor, harte Kanten</translation>
    </message>
    <message>
        <source>F&amp;it:</source>
        <translation>&amp;Einpassen:</translation>
    </message>
    <message>
        <source>Background colour</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>&amp;Background:</source>
        <translation>&amp;Hintergrund:</translation>
    </message>
    <message>
        <source>Bitmap (.bmp, 24-bit)</source>
        <translation>Bitmap (.bmp, 24 Bit)</translation>
    </message>
    <message>
        <source>JPEG (.jpg)</source>
        <translation>JPEG (.jpg)</translation>
    </message>
    <message>
        <source>JPEG quality</source>
        <translation>JPEG-Qualität</translation>
    </message>
    <message>
        <source>Quality:</source>
        <translation>Qualität:</translation>
    </message>
    <message>
        <source>Fo&amp;rmat:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>Sheet columns</source>
        <translation>Spalten des Bogens</translation>
    </message>
    <message>
        <source>Sheet rows</source>
        <translation>Zeilen des Bogens</translation>
    </message>
    <message>
        <source>columns x</source>
        <translation>Spalten x</translation>
    </message>
    <message>
        <source>rows (1 x 1: not a sheet)</source>
        <translation>Zeilen (1 x 1: kein Bogen)</translation>
    </message>
    <message>
        <source>S&amp;heet:</source>
        <translation>&amp;Bogen:</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>After (1x)</source>
        <translation>Nachher (1x)</translation>
    </message>
    <message>
        <source>After (2x)</source>
        <translation>Nachher (2x)</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Choose the art: files or a folder.</source>
        <translation>Wählen Sie das Bildmaterial: Dateien oder einen Ordner.</translation>
    </message>
    <message>
        <source>Music the game plays is copied; other music becomes OGG Vorbis.</source>
        <translation>Musik, die das Spiel abspielt, wird kopiert; andere Musik wird zu OGG Vorbis.</translation>
    </message>
    <message>
        <source>Becomes a 16-bit PCM wave at 11025, 22050 or 44100 Hz.</source>
        <translation>Wird zu einer 16-Bit-PCM-Wave-Datei mit 11025, 22050 oder 44100 Hz.</translation>
    </message>
    <message>
        <source>%1 frames of %2 x %3</source>
        <translation>%1 Einzelbilder zu %2 x %3</translation>
    </message>
    <message>
        <source>1 picture of %1 x %2</source>
        <translation>1 Bild zu %1 x %2</translation>
    </message>
    <message>
        <source>, delay %1 ms</source>
        <translation>, Verzögerung %1 ms</translation>
    </message>
    <message>
        <source>, no delay of its own (the row&apos;s stays)</source>
        <translation>, keine eigene Verzögerung (die der Zeile bleibt)</translation>
    </message>
</context>
<context>
    <name>BuildCommand</name>
    <message>
        <source>Build Resource Package</source>
        <translation>Ressourcenpaket erstellen</translation>
    </message>
    <message>
        <source>These files are named by absolute paths or lie outside the package folder, which the player&apos;s machine will not have:

%1

Store them in the package under their own names and change the fields to those names?</source>
        <translation>Diese Dateien sind mit absoluten Pfaden angegeben oder liegen außerhalb des Paketordners, den der Rechner des Spielers nicht hat:

%1

Sie unter ihren eigenen Namen im Paket ablegen und die Felder auf diese Namen ändern?</translation>
    </message>
    <message>
        <source>Writing the resource package...</source>
        <translation>Das Ressourcenpaket wird geschrieben...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>... and %1 more in the Problems panel.</source>
        <translation>... und %1 weitere in der Problemliste.</translation>
    </message>
    <message>
        <source>The resource package was not written:

%1</source>
        <translation>Das Ressourcenpaket wurde nicht geschrieben:

%1</translation>
    </message>
    <message>
        <source>Wrote %1 (%2 files)</source>
        <translation>%1 geschrieben (%2 Dateien)</translation>
    </message>
</context>
<context>
    <name>EditorApplication</name>
    <message>
        <source>Unsaved changes were lost: %1</source>
        <translation>Ungespeicherte Änderungen gingen verloren: %1</translation>
    </message>
    <message>
        <source>Unsaved changes were kept in %1</source>
        <translation>Ungespeicherte Änderungen wurden in %1 aufbewahrt</translation>
    </message>
    <message>
        <source>a new theme</source>
        <translation>ein neues Theme</translation>
    </message>
    <message>
        <source>Stakko Theme Maker did not end properly while %1 had unsaved changes (kept %2).

&quot;Restore&quot; brings the theme back as it was; &quot;Discard&quot; deletes the kept changes.</source>
        <translation>Stakko Theme Maker wurde nicht ordnungsgemäß beendet, während %1 ungespeicherte Änderungen hatte (aufbewahrt %2).

„Wiederherstellen“ holt das Theme zurück, wie es war; „Verwerfen“ löscht die aufbewahrten Änderungen.</translation>
    </message>
    <message>
        <source>Recover Unsaved Changes</source>
        <translation>Ungespeicherte Änderungen wiederherstellen</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>The unsaved changes could not be restored: %1</source>
        <translation>Die ungespeicherten Änderungen konnten nicht wiederhergestellt werden: %1</translation>
    </message>
    <message>
        <source>Unsaved changes could not be kept for recovery: %1</source>
        <translation>Ungespeicherte Änderungen konnten nicht für die Wiederherstellung aufbewahrt werden: %1</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>General Theme Information</source>
        <translation>Allgemeine Angaben zum Theme</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>&amp;Allgemein</translation>
    </message>
    <message>
        <source>IFace</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>Graphical Interface Configuration</source>
        <translation>Einstellungen der grafischen Oberfläche</translation>
    </message>
    <message>
        <source>&amp;Interface</source>
        <translation>&amp;Oberfläche</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Game Background Configuration</source>
        <translation>Einstellungen des Spielhintergrunds</translation>
    </message>
    <message>
        <source>&amp;Background</source>
        <translation>&amp;Hintergrund</translation>
    </message>
    <message>
        <source>Blocks</source>
        <translation>Blöcke</translation>
    </message>
    <message>
        <source>Game Block Configuration</source>
        <translation>Einstellungen der Spielblöcke</translation>
    </message>
    <message>
        <source>Bl&amp;ocks</source>
        <translation>&amp;Blöcke</translation>
    </message>
    <message>
        <source>Misc. GFX</source>
        <translation>Sonst. Grafik</translation>
    </message>
    <message>
        <source>Miscellaneous graphics</source>
        <translation>Sonstige Grafiken</translation>
    </message>
    <message>
        <source>&amp;Misceallenous Graphics</source>
        <translation>&amp;Sonstige Grafiken</translation>
    </message>
    <message>
        <source>Sounds/Music</source>
        <translation>Klänge/Musik</translation>
    </message>
    <message>
        <source>Sounds and Music configuration</source>
        <translation>Einstellungen der Klänge und Musik</translation>
    </message>
    <message>
        <source>&amp;Sounds and Music</source>
        <translation>&amp;Klänge und Musik</translation>
    </message>
    <message>
        <source>Theme Colors</source>
        <translation>Theme-Farben</translation>
    </message>
    <message>
        <source>Misc. Images</source>
        <translation>Sonst. Bilder</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Theme &amp;New</source>
        <translation>&amp;Neues Theme</translation>
    </message>
    <message>
        <source>Theme &amp;Load</source>
        <translation>Theme &amp;laden</translation>
    </message>
    <message>
        <source>Theme &amp;Save</source>
        <translation>Theme &amp;speichern</translation>
    </message>
    <message>
        <source>Theme Save &amp;As</source>
        <translation>Theme speichern &amp;unter</translation>
    </message>
    <message>
        <source>&amp;Recent Themes</source>
        <translation>&amp;Zuletzt geöffnete Themes</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Theme Data</source>
        <translation>&amp;Theme-Daten</translation>
    </message>
    <message>
        <source>T&amp;ools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;Check Theme</source>
        <translation>Theme &amp;prüfen</translation>
    </message>
    <message>
        <source>Use Art &amp;Folder...</source>
        <translation>Bildmaterial-&amp;Ordner verwenden...</translation>
    </message>
    <message>
        <source>&amp;Build Resource Package</source>
        <translation>Ressourcenpaket &amp;erstellen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Stakko Theme Maker &amp;Manual</source>
        <translation>&amp;Handbuch zu Stakko Theme Maker</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a colour&apos;s field and its value</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>no colour</source>
        <translation>keine Farbe</translation>
    </message>
    <message>
        <source>%1[*] - %2</source>
        <comment>the theme file&apos;s name, the program&apos;s</comment>
        <translation>%1[*] – %2</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Theme Type 0</source>
        <translation>Theme-Typ 0</translation>
    </message>
    <message>
        <source>Theme Type 1</source>
        <translation>Theme-Typ 1</translation>
    </message>
    <message>
        <source>Internet Background</source>
        <translation>Internet-Hintergrund</translation>
    </message>
</context>
<context>
    <name>ManualBrowser</name>
    <message>
        <source>The Stakko Theme Maker Manual is not installed: %1 holds no manual.</source>
        <translation>Das Handbuch zu Stakko Theme Maker ist nicht installiert: %1 enthält kein Handbuch.</translation>
    </message>
    <message>
        <source>No browser could open the Stakko Theme Maker Manual at %1.</source>
        <translation>Kein Browser konnte das Handbuch zu Stakko Theme Maker unter %1 öffnen.</translation>
    </message>
</context>
<context>
    <name>PageWidgets</name>
    <message>
        <source>Stop Music</source>
        <translation>Musik stoppen</translation>
    </message>
    <message>
        <source>Play Music</source>
        <translation>Musik abspielen</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Background preview</source>
        <translation>Vorschau des Hintergrunds</translation>
    </message>
    <message>
        <source>Theme Type 0</source>
        <translation>Theme-Typ 0</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source>General Theme Information</source>
        <translation>Allgemeine Angaben zum Theme</translation>
    </message>
    <message>
        <source>Generate Description</source>
        <translation>Beschreibung erzeugen</translation>
    </message>
    <message>
        <source>Interface screen preview</source>
        <translation>Vorschau des Oberflächenbildschirms</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>Vorschau:</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>Theme Colors</source>
        <translation>Theme-Farben</translation>
    </message>
    <message>
        <source>%1 swatch</source>
        <comment>a colour&apos;s field</comment>
        <translation>Farbfeld %1</translation>
    </message>
    <message>
        <source>Choose Color</source>
        <translation>Farbe wählen</translation>
    </message>
    <message>
        <source>Miscellaneous image preview</source>
        <translation>Vorschau des sonstigen Bildes</translation>
    </message>
    <message>
        <source>Miscellaneous Images</source>
        <translation>Sonstige Bilder</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Klänge</translation>
    </message>
    <message>
        <source>Play Sound</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Data Set to Edit:</source>
        <translation>Zu bearbeitender Datensatz:</translation>
    </message>
    <message>
        <source>Animation Configuration</source>
        <translation>Einstellungen der Animation</translation>
    </message>
    <message>
        <source>%1 preview</source>
        <comment>an animated element&apos;s caption</comment>
        <translation>Vorschau: %1</translation>
    </message>
    <message>
        <source>%1 x %2 per frame</source>
        <translation>%1 x %2 je Einzelbild</translation>
    </message>
</context>
<context>
    <name>PreviewBinding</name>
    <message>
        <source>Loading %1 frames...</source>
        <translation>Einzelbilder von %1 werden geladen...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Interface Screen</source>
        <translation>Oberflächenbildschirm</translation>
    </message>
    <message>
        <source>Misc. Image</source>
        <translation>Sonst. Bild</translation>
    </message>
    <message>
        <source>%1: no image is chosen</source>
        <translation>%1: Es ist kein Bild gewählt</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; names no frame file (it has no extension)</source>
        <translation>%1: „%2“ nennt keine Einzelbild-Datei (der Name hat keine Endung)</translation>
    </message>
    <message>
        <source>Frame %1 of %2 is missing: %3</source>
        <translation>Einzelbild %1 von %2 fehlt: %3</translation>
    </message>
    <message>
        <source>Frame %1 of %2 cannot be read as an image: %3</source>
        <translation>Einzelbild %1 von %2 kann nicht als Bild gelesen werden: %3</translation>
    </message>
    <message>
        <source>Unable to load image: %1</source>
        <translation>Bild kann nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>%1, empty</source>
        <comment>a preview&apos;s accessible name</comment>
        <translation>%1, leer</translation>
    </message>
    <message>
        <source>%1 preview, frame %2 of %3, playing</source>
        <translation>Vorschau %1, Einzelbild %2 von %3, läuft</translation>
    </message>
    <message>
        <source>%1 preview, frame %2 of %3, paused</source>
        <translation>Vorschau %1, Einzelbild %2 von %3, angehalten</translation>
    </message>
</context>
<context>
    <name>PreviewWindow</name>
    <message>
        <source>Preview - %1</source>
        <translation>Vorschau – %1</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>&lt; Step</source>
        <translation>&lt; Schritt</translation>
    </message>
    <message>
        <source>Step &gt;</source>
        <translation>Schritt &gt;</translation>
    </message>
    <message>
        <source>Zoom:</source>
        <translation>Vergrößerung:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Frame %1 of %2, delay %3 ms</source>
        <translation>Einzelbild %1 von %2, Verzögerung %3 ms</translation>
    </message>
    <message>
        <source>Playing %1 frames, delay %2 ms</source>
        <translation>Spielt %1 Einzelbilder ab, Verzögerung %2 ms</translation>
    </message>
</context>
<context>
    <name>ProblemsPanel</name>
    <message>
        <source>%1 (%2)</source>
        <comment>a field and the element it belongs to</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>Probleme</translation>
    </message>
    <message>
        <source>&amp;Explain in the Manual</source>
        <translation>Im Handbuch &amp;erklären</translation>
    </message>
    <message>
        <source>Problem</source>
        <translation>Problem</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Show the problems the check found</source>
        <translation>Die Probleme zeigen, die die Prüfung gefunden hat</translation>
    </message>
</context>
<context>
    <name>QtDialogs</name>
    <message>
        <source>Unsaved changes to %1</source>
        <translation>Ungespeicherte Änderungen an %1</translation>
    </message>
</context>
<context>
    <name>RecentMenu</name>
    <message>
        <source>&amp;Clear Recent Themes</source>
        <translation>Liste &amp;leeren</translation>
    </message>
    <message>
        <source>The theme file %1 no longer exists. It has been removed from the recent themes.</source>
        <translation>Die Theme-Datei %1 existiert nicht mehr. Sie wurde aus den zuletzt geöffneten Themes entfernt.</translation>
    </message>
    <message>
        <source>%1 did not load as a theme. It has been removed from the recent themes.</source>
        <translation>%1 ließ sich nicht als Theme laden. Die Datei wurde aus den zuletzt geöffneten Themes entfernt.</translation>
    </message>
</context>
<context>
    <name>ScreenshotTour</name>
    <message>
        <source>the picture could not be encoded</source>
        <translation>das Bild konnte nicht kodiert werden</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Could not create %1</source>
        <translation>%1 konnte nicht angelegt werden</translation>
    </message>
</context>
<context>
    <name>ThemeFileWatch</name>
    <message>
        <source>Theme Changed</source>
        <translation>Theme geändert</translation>
    </message>
    <message>
        <source>%1 has been changed by another program.

Discard your changes and load it again?</source>
        <translation>%1 wurde von einem anderen Programm geändert.

Ihre Änderungen verwerfen und die Datei neu laden?</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Usage: stakko-theme-maker [THEME.skt]
       stakko-theme-maker --screenshot DIR [THEME.skt]
</source>
        <translation>Aufruf: stakko-theme-maker [THEME.skt]
        stakko-theme-maker --screenshot ORDNER [THEME.skt]
</translation>
    </message>
    <message>
        <source>
Opens THEME, a .skt theme file (as a file manager passes it), or a new theme.

Options:
  --screenshot DIR   write every page and data set of THEME, with its previews playing,
                     as PNG files in DIR (at the screen&apos;s resolution and again at
                     144 DPI), then the Problems panel, the File and Edit menus and the
                     closer look at 4x, and exit; nothing else is written
  --lang CODE        speak the language CODE (de, en, ...) instead of the system&apos;s
  --help, --version

Exit status: 0 done, 1 a screenshot could not be written, 2 usage error.
</source>
        <translation>
Öffnet THEME, eine .skt-Theme-Datei (wie ein Dateimanager sie übergibt),
oder ein neues Theme.

Optionen:
  --screenshot ORDNER  jede Seite und jeden Datensatz von THEME mit laufenden Vorschauen
                       als PNG-Dateien in ORDNER schreiben (in der Auflösung des
                       Bildschirms und noch einmal mit 144 DPI), dann die Problemliste,
                       die Menüs Datei und Bearbeiten und die Nahansicht mit 4x, und
                       beenden; sonst wird nichts geschrieben
  --lang CODE          in der Sprache CODE (de, en, ...) statt der des Systems sprechen
  --help, --version

Rückgabewert: 0 erledigt, 1 ein Bildschirmfoto konnte nicht geschrieben werden,
2 Aufruffehler.
</translation>
    </message>
    <message>
        <source>Try &apos;stakko-theme-maker --help&apos;.</source>
        <translation>Versuchen Sie „stakko-theme-maker --help“.</translation>
    </message>
    <message>
        <source>stakko-theme-maker: no translation for &apos;%1&apos;; texts stay in English</source>
        <translation>stakko-theme-maker: keine Übersetzung für „%1“; die Texte bleiben englisch</translation>
    </message>
</context>
</TS>
