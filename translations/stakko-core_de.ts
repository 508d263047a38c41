<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AnimatedElement</name>
    <message>
        <source>Game Background</source>
        <translation>Spielhintergrund</translation>
    </message>
    <message>
        <source>Game Internet Background</source>
        <translation>Internet-Spielhintergrund</translation>
    </message>
    <message>
        <source>Game Blocks</source>
        <translation>Spielblöcke</translation>
    </message>
    <message>
        <source>Next Block Window</source>
        <translation>Fenster „Nächster Block“</translation>
    </message>
    <message>
        <source>Special Window</source>
        <translation>Spezialfenster</translation>
    </message>
    <message>
        <source>Explosion</source>
        <translation>Explosion</translation>
    </message>
    <message>
        <source>Block Bomb</source>
        <translation>Blockbombe</translation>
    </message>
</context>
<context>
    <name>ArtImport</name>
    <message>
        <source>Could not make the folder for %1.</source>
        <translation>Der Ordner für %1 konnte nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2.</source>
        <translation>%1 konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>%1 could not be moved to %2: %3.</source>
        <translation>%1 konnte nicht nach %2 verschoben werden: %3.</translation>
    </message>
    <message>
        <source>Could not make a folder in %1: %2.</source>
        <translation>In %1 konnte kein Ordner angelegt werden: %2.</translation>
    </message>
    <message>
        <source>%1 needs Theme Type 1: a Theme Type 0 theme holds only interface screens, sounds and music.</source>
        <translation>%1 braucht Theme-Typ 1: Ein Theme vom Typ 0 enthält nur Bildschirme der Oberfläche, Klänge und Musik.</translation>
    </message>
    <message>
        <source>Save the theme first: the import saves it with the new files.</source>
        <translation>Speichern Sie das Theme zuerst: Der Import speichert es mit den neuen Dateien.</translation>
    </message>
    <message>
        <source>%1 takes one file, not %2.</source>
        <translation>%1 nimmt eine Datei, nicht %2.</translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation>%1 ist kein Ordner.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot name files in the folder%2.</source>
        <translation>„%1“ kann keine Dateien im Ordner benennen%2.</translation>
    </message>
    <message>
        <source> (a frame root holds no &quot;.&quot;)</source>
        <translation> (ein Einzelbild-Stamm enthält keinen „.“)</translation>
    </message>
    <message>
        <source>Frame %1 could not be encoded.</source>
        <translation>Einzelbild %1 konnte nicht kodiert werden.</translation>
    </message>
    <message>
        <source>The import was cancelled.</source>
        <translation>Der Import wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2.</source>
        <translation>%1 konnte nicht gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>The package was not rebuilt: the theme names files that are not in %1.</source>
        <translation>Das Paket wurde nicht neu erstellt: Das Theme nennt Dateien, die nicht in %1 liegen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an image, animation, sound or music row.</source>
        <translation>„%1“ ist keine Zeile für Bild, Animation, Klang oder Musik.</translation>
    </message>
</context>
<context>
    <name>ArtSource</name>
    <message>
        <source>%1 could not be read as a picture: %2.</source>
        <translation>%1 konnte nicht als Bild gelesen werden: %2.</translation>
    </message>
    <message>
        <source>%1 is %2 x %3 pixels, which does not divide into %4 x %5 cells.</source>
        <translation>%1 ist %2 x %3 Pixel groß und lässt sich nicht in %4 x %5 Zellen teilen.</translation>
    </message>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 existiert nicht.</translation>
    </message>
    <message>
        <source>%1 holds no pictures.</source>
        <translation>%1 enthält keine Bilder.</translation>
    </message>
    <message>
        <source>No art was given to import.</source>
        <translation>Es wurde keine Grafik zum Importieren angegeben.</translation>
    </message>
    <message>
        <source>The import was cancelled.</source>
        <translation>Der Import wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>AutoRecovery</name>
    <message>
        <source>Cannot read %1</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1 is damaged</source>
        <translation>%1 ist beschädigt</translation>
    </message>
    <message>
        <source>Stakko Theme Maker was closed by the system with unsaved changes. They were kept in:
%1
Load %2 to get them back.</source>
        <translation>Stakko Theme Maker wurde vom System mit ungespeicherten Änderungen beendet. Sie wurden aufbewahrt in:
%1
Laden Sie %2, um sie wiederherzustellen.</translation>
    </message>
    <message>
        <source>that file</source>
        <translation>diese Datei</translation>
    </message>
    <message>
        <source>those files</source>
        <translation>diese Dateien</translation>
    </message>
    <message>
        <source>Unsaved Changes Kept</source>
        <translation>Ungespeicherte Änderungen aufbewahrt</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Cannot create %1</source>
        <translation>%1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>Cannot lock %1</source>
        <translation>%1 kann nicht gesperrt werden</translation>
    </message>
</context>
<context>
    <name>FieldBrowsing</name>
    <message>
        <source>Choose the folder of the theme&apos;s art</source>
        <translation>Wählen Sie den Ordner mit den Grafiken des Themes</translation>
    </message>
</context>
<context>
    <name>FieldCaption</name>
    <message>
        <source>Theme Name:</source>
        <translation>Theme-Name:</translation>
    </message>
    <message>
        <source>Theme Author:</source>
        <translation>Theme-Autor:</translation>
    </message>
    <message>
        <source>Theme Version</source>
        <translation>Theme-Version</translation>
    </message>
    <message>
        <source>Theme Type:</source>
        <translation>Theme-Typ:</translation>
    </message>
    <message>
        <source>Theme Description:</source>
        <translation>Theme-Beschreibung:</translation>
    </message>
    <message>
        <source>Resource File(Theme Type 1):</source>
        <translation>Ressourcendatei (Theme-Typ 1):</translation>
    </message>
    <message>
        <source>Skin File:</source>
        <translation>Skin-Datei:</translation>
    </message>
    <message>
        <source>Use Skin File Transparency Effects</source>
        <translation>Transparenzeffekte der Skin-Datei verwenden</translation>
    </message>
    <message>
        <source>Include Interface in Theme</source>
        <translation>Oberfläche ins Theme aufnehmen</translation>
    </message>
    <message>
        <source>Main/Fields Screen:</source>
        <translation>Haupt-/Spielfeldbildschirm:</translation>
    </message>
    <message>
        <source>Options Screen:</source>
        <translation>Optionsbildschirm:</translation>
    </message>
    <message>
        <source>Chat Screen:</source>
        <translation>Chat-Bildschirm:</translation>
    </message>
    <message>
        <source>Client Connect Screen:</source>
        <translation>Bildschirm „Mit Server verbinden“:</translation>
    </message>
    <message>
        <source>Server Screen:</source>
        <translation>Server-Bildschirm:</translation>
    </message>
    <message>
        <source>Theme Previewer Screen:</source>
        <translation>Bildschirm der Theme-Vorschau:</translation>
    </message>
    <message>
        <source>Miscellaneous Screen:</source>
        <translation>Bildschirm „Sonstiges“:</translation>
    </message>
    <message>
        <source>High Score Screen:</source>
        <translation>Bestenlisten-Bildschirm:</translation>
    </message>
    <message>
        <source>Internet Field Screen:</source>
        <translation>Internet-Spielfeldbildschirm:</translation>
    </message>
    <message>
        <source>Menu Graphics:</source>
        <translation>Menügrafik:</translation>
    </message>
    <message>
        <source>Enable Menu Graphic Transparency</source>
        <translation>Transparenz der Menügrafik einschalten</translation>
    </message>
    <message>
        <source>Include Game Backgrond</source>
        <translation>Spielhintergrund aufnehmen</translation>
    </message>
    <message>
        <source>Background Image:</source>
        <translation>Hintergrundbild:</translation>
    </message>
    <message>
        <source>Animated Background</source>
        <translation>Animierter Hintergrund</translation>
    </message>
    <message>
        <source>Image Root:</source>
        <translation>Bildstamm:</translation>
    </message>
    <message>
        <source>Image Extension:</source>
        <translation>Bilderweiterung:</translation>
    </message>
    <message>
        <source>Number of frames:</source>
        <translation>Anzahl der Einzelbilder:</translation>
    </message>
    <message>
        <source>Starting Frame:</source>
        <translation>Erstes Einzelbild:</translation>
    </message>
    <message>
        <source>Background Still Image:</source>
        <translation>Standbild des Hintergrunds:</translation>
    </message>
    <message>
        <source>Reverse Animation</source>
        <translation>Animation rückwärts</translation>
    </message>
    <message>
        <source>Delay Between Frames:</source>
        <translation>Verzögerung zwischen Einzelbildern:</translation>
    </message>
    <message>
        <source>Include Game Internet Backgrond</source>
        <translation>Internet-Spielhintergrund aufnehmen</translation>
    </message>
    <message>
        <source>Internet Background Image:</source>
        <translation>Internet-Hintergrundbild:</translation>
    </message>
    <message>
        <source>Animated Internet Background</source>
        <translation>Animierter Internet-Hintergrund</translation>
    </message>
    <message>
        <source>Include Game Blocks</source>
        <translation>Spielblöcke aufnehmen</translation>
    </message>
    <message>
        <source>Blocks Image:</source>
        <translation>Bild der Blöcke:</translation>
    </message>
    <message>
        <source>Animated Blocks</source>
        <translation>Animierte Blöcke</translation>
    </message>
    <message>
        <source>Animated Specials</source>
        <translation>Animierte Spezialblöcke</translation>
    </message>
    <message>
        <source>Animated Internet Blocks</source>
        <translation>Animierte Internet-Blöcke</translation>
    </message>
    <message>
        <source>Animated Internet Specials</source>
        <translation>Animierte Internet-Spezialblöcke</translation>
    </message>
    <message>
        <source>Transparent Blocks</source>
        <translation>Transparente Blöcke</translation>
    </message>
    <message>
        <source>Block Still Image:</source>
        <translation>Standbild der Blöcke:</translation>
    </message>
    <message>
        <source>Include Next Window GFX</source>
        <translation>Grafik „Nächster Block“ aufnehmen</translation>
    </message>
    <message>
        <source>Next Block Image:</source>
        <translation>Bild „Nächster Block“:</translation>
    </message>
    <message>
        <source>Include Special Window GFX</source>
        <translation>Grafik des Spezialfensters aufnehmen</translation>
    </message>
    <message>
        <source>Special Window Image:</source>
        <translation>Bild des Spezialfensters:</translation>
    </message>
    <message>
        <source>Animated Special Window</source>
        <translation>Animiertes Spezialfenster</translation>
    </message>
    <message>
        <source>Include Explosion in Theme</source>
        <translation>Explosion ins Theme aufnehmen</translation>
    </message>
    <message>
        <source>Explosion Image:</source>
        <translation>Explosionsbild:</translation>
    </message>
    <message>
        <source>Transparent Explosion</source>
        <translation>Transparente Explosion</translation>
    </message>
    <message>
        <source>Include Bomb in Theme</source>
        <translation>Bombe ins Theme aufnehmen</translation>
    </message>
    <message>
        <source>Block Bomb Image:</source>
        <translation>Bild der Blockbombe:</translation>
    </message>
    <message>
        <source>Include Colors in Theme</source>
        <translation>Farben ins Theme aufnehmen</translation>
    </message>
    <message>
        <source>Title Bar Color:</source>
        <translation>Farbe der Titelleiste:</translation>
    </message>
    <message>
        <source>Fields Screen Color:</source>
        <translation>Farbe des Spielfeldbildschirms:</translation>
    </message>
    <message>
        <source>Options Screen Color:</source>
        <translation>Farbe des Optionsbildschirms:</translation>
    </message>
    <message>
        <source>Theme Screen Color:</source>
        <translation>Farbe des Theme-Bildschirms:</translation>
    </message>
    <message>
        <source>Server Screen Color:</source>
        <translation>Farbe des Server-Bildschirms:</translation>
    </message>
    <message>
        <source>Client Connect Screen Color:</source>
        <translation>Farbe des Verbindungsbildschirms:</translation>
    </message>
    <message>
        <source>Internet Screen Color:</source>
        <translation>Farbe des Internet-Bildschirms:</translation>
    </message>
    <message>
        <source>High Score Title Color:</source>
        <translation>Farbe des Bestenlisten-Titels:</translation>
    </message>
    <message>
        <source>High Score Normal Color:</source>
        <translation>Normale Farbe der Bestenliste:</translation>
    </message>
    <message>
        <source>High Score First Place Color:</source>
        <translation>Farbe des ersten Platzes:</translation>
    </message>
    <message>
        <source>High Score Second Place Color:</source>
        <translation>Farbe des zweiten Platzes:</translation>
    </message>
    <message>
        <source>High Score Third Place Color:</source>
        <translation>Farbe des dritten Platzes:</translation>
    </message>
    <message>
        <source>Include Misc. Images in Theme</source>
        <translation>Sonstige Bilder ins Theme aufnehmen</translation>
    </message>
    <message>
        <source>Door Image Left:</source>
        <translation>Türbild links:</translation>
    </message>
    <message>
        <source>Door Image Right:</source>
        <translation>Türbild rechts:</translation>
    </message>
    <message>
        <source>Internet Door Image:</source>
        <translation>Internet-Türbild:</translation>
    </message>
    <message>
        <source>Win Game Image:</source>
        <translation>Bild für gewonnenes Spiel:</translation>
    </message>
    <message>
        <source>Win Game Image Transparent</source>
        <translation>Bild für gewonnenes Spiel transparent</translation>
    </message>
    <message>
        <source>Internet Win Game Image:</source>
        <translation>Internet-Bild für gewonnenes Spiel:</translation>
    </message>
    <message>
        <source>Internet Win Game Image Transparent</source>
        <translation>Internet-Bild für gewonnenes Spiel transparent</translation>
    </message>
    <message>
        <source>Height Led Image:</source>
        <translation>Bild der Höhenanzeige:</translation>
    </message>
    <message>
        <source>Warning Image:</source>
        <translation>Warnbild:</translation>
    </message>
    <message>
        <source>Team Font Image:</source>
        <translation>Bild der Team-Schrift:</translation>
    </message>
    <message>
        <source>Include Sounds in Theme</source>
        <translation>Klänge ins Theme aufnehmen</translation>
    </message>
    <message>
        <source>Start Game:</source>
        <translation>Spielstart:</translation>
    </message>
    <message>
        <source>Rotate Block:</source>
        <translation>Block drehen:</translation>
    </message>
    <message>
        <source>Drop Block:</source>
        <translation>Block fallen lassen:</translation>
    </message>
    <message>
        <source>Make Line:</source>
        <translation>Zeile vollständig:</translation>
    </message>
    <message>
        <source>Tetris:</source>
        <translation>Tetris:</translation>
    </message>
    <message>
        <source>Explosion:</source>
        <translation>Explosion:</translation>
    </message>
    <message>
        <source>Win Game:</source>
        <translation>Spiel gewonnen:</translation>
    </message>
    <message>
        <source>Lose Game:</source>
        <translation>Spiel verloren:</translation>
    </message>
    <message>
        <source>Chat Message:</source>
        <translation>Chat-Nachricht:</translation>
    </message>
    <message>
        <source>Menu Click:</source>
        <translation>Menüklick:</translation>
    </message>
    <message>
        <source>Shield:</source>
        <translation>Schild:</translation>
    </message>
    <message>
        <source>Include Music in Theme</source>
        <translation>Musik ins Theme aufnehmen</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
</context>
<context>
    <name>FileCommands</name>
    <message>
        <source>Caution</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>This action will cause all previous changes to be lost, do you wish to save?</source>
        <translation>Dabei gehen alle bisherigen Änderungen verloren. Möchten Sie speichern?</translation>
    </message>
</context>
<context>
    <name>FileFilter</name>
    <message>
        <source>Bitmap Graphic (*.bmp)</source>
        <translation>Bitmap-Grafik (*.bmp)</translation>
    </message>
    <message>
        <source>JPEG Graphic (*.jpg)</source>
        <translation>JPEG-Grafik (*.jpg)</translation>
    </message>
    <message>
        <source>All Files(*.*)</source>
        <translation>Alle Dateien(*.*)</translation>
    </message>
    <message>
        <source>Wave Sound (*.wav)</source>
        <translation>Wave-Klang (*.wav)</translation>
    </message>
    <message>
        <source>All Supported Sound Files</source>
        <translation>Alle unterstützten Klangdateien</translation>
    </message>
    <message>
        <source>MPEG Audio File (*.MP3, *.MP2)</source>
        <translation>MPEG-Audiodatei (*.MP3, *.MP2)</translation>
    </message>
    <message>
        <source>Midi File(*.MID, *.MIDI)</source>
        <translation>MIDI-Datei(*.MID, *.MIDI)</translation>
    </message>
    <message>
        <source>Mod Files (*.XM, *.MOD, *.S3M, *.IT)</source>
        <translation>Mod-Dateien (*.XM, *.MOD, *.S3M, *.IT)</translation>
    </message>
    <message>
        <source>Windows Media Audio(*.WMA, *.ASF)</source>
        <translation>Windows Media Audio(*.WMA, *.ASF)</translation>
    </message>
    <message>
        <source>Ogg Vorbis(*.OGG)</source>
        <translation>Ogg Vorbis(*.OGG)</translation>
    </message>
    <message>
        <source>Wave File(*.WAV)</source>
        <translation>Wave-Datei(*.WAV)</translation>
    </message>
    <message>
        <source>Zip File (*.zip)</source>
        <translation>Zip-Datei (*.zip)</translation>
    </message>
    <message>
        <source>Stakko Theme File (*.skt)</source>
        <translation>Stakko-Theme-Datei (*.skt)</translation>
    </message>
</context>
<context>
    <name>FramePreviews</name>
    <message>
        <source>The %1 animation is too large to preview: %2 frames need more than 1 GiB of memory.</source>
        <translation>Die Animation %1 ist zu groß für die Vorschau: %2 Einzelbilder brauchen mehr als 1 GiB Speicher.</translation>
    </message>
</context>
<context>
    <name>FrameSettings</name>
    <message>
        <source>Number of frames needs to be 1 or greater!</source>
        <translation>Die Anzahl der Einzelbilder muss 1 oder größer sein!</translation>
    </message>
    <message>
        <source>Starting frame needs to be 1 or greater!</source>
        <translation>Das erste Einzelbild muss 1 oder größer sein!</translation>
    </message>
    <message>
        <source>Delay between frames needs to be 0 or greater!</source>
        <translation>Die Verzögerung zwischen Einzelbildern muss 0 oder größer sein!</translation>
    </message>
</context>
<context>
    <name>MixerSettings</name>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>PackageBuilder</name>
    <message>
        <source>A Theme Type 0 theme has no resource package: choose Theme Type 1 to build one.</source>
        <translation>Ein Theme vom Typ 0 hat kein Ressourcenpaket: Wählen Sie Theme-Typ 1, um eines zu erstellen.</translation>
    </message>
    <message>
        <source>Save the theme first: its package is written beside it.</source>
        <translation>Speichern Sie das Theme zuerst: Sein Paket wird daneben geschrieben.</translation>
    </message>
</context>
<context>
    <name>PackageWriter</name>
    <message>
        <source>%1 is not inside the folder %2.</source>
        <translation>%1 liegt nicht im Ordner %2.</translation>
    </message>
    <message>
        <source>%1 is not a file that can be packed.</source>
        <translation>%1 ist keine Datei, die sich packen lässt.</translation>
    </message>
    <message>
        <source>An encrypted package needs a password.</source>
        <translation>Ein verschlüsseltes Paket braucht ein Passwort.</translation>
    </message>
    <message>
        <source>The password may only use Windows-1252 letters.</source>
        <translation>Das Passwort darf nur Zeichen aus Windows-1252 enthalten.</translation>
    </message>
    <message>
        <source>This system cannot encrypt packages: %1</source>
        <translation>Dieses System kann keine Pakete verschlüsseln: %1</translation>
    </message>
    <message>
        <source>Could not read %1: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>Could not add %1: %2</source>
        <translation>%1 konnte nicht hinzugefügt werden: %2</translation>
    </message>
    <message>
        <source>%1 changed while it was packed.</source>
        <translation>%1 hat sich beim Packen geändert.</translation>
    </message>
    <message>
        <source>%1 cannot be stored in a package: the name points outside the folder it unpacks into.</source>
        <translation>%1 kann nicht in einem Paket gespeichert werden: Der Name zeigt aus dem Ordner hinaus, in den es entpackt wird.</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Could not set up the zip writer: %1</source>
        <translation>Das Schreiben der Zip-Datei konnte nicht vorbereitet werden: %1</translation>
    </message>
    <message>
        <source>Writing %1 was cancelled.</source>
        <translation>Das Schreiben von %1 wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>Platform</name>
    <message>
        <source>it is a link</source>
        <translation>er ist eine Verknüpfung</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>er ist kein Ordner</translation>
    </message>
    <message>
        <source>it belongs to another user</source>
        <translation>er gehört einem anderen Benutzer</translation>
    </message>
</context>
<context>
    <name>Report</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>no problems</source>
        <translation>keine Probleme</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>1 error</source>
        <translation>1 Fehler</translation>
    </message>
    <message>
        <source>%1 errors</source>
        <translation>%1 Fehler</translation>
    </message>
    <message>
        <source>1 warning</source>
        <translation>1 Warnung</translation>
    </message>
    <message>
        <source>%1 warnings</source>
        <translation>%1 Warnungen</translation>
    </message>
</context>
<context>
    <name>ResourcePackage</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Bytes</translation>
    </message>
    <message>
        <source>no such folder</source>
        <translation>diesen Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>The shared folder cannot be used safely (%1), so the package is unpacked in %2 instead.</source>
        <translation>Der gemeinsame Ordner lässt sich nicht sicher verwenden (%1), daher wird das Paket stattdessen in %2 entpackt.</translation>
    </message>
    <message>
        <source>No safe folder to unpack it into (%1).</source>
        <translation>Kein sicherer Ordner zum Entpacken (%1).</translation>
    </message>
    <message>
        <source>Please Enter The Password!</source>
        <translation>Bitte geben Sie das Passwort ein!</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei existiert nicht.</translation>
    </message>
    <message>
        <source>It is not a zip archive or it is damaged.</source>
        <translation>Sie ist kein Zip-Archiv oder ist beschädigt.</translation>
    </message>
    <message>
        <source>It is damaged at %1.</source>
        <translation>Sie ist bei %1 beschädigt.</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Could not write %1: %2 is in the way (%3).</source>
        <translation>%1 konnte nicht geschrieben werden: %2 steht im Weg (%3).</translation>
    </message>
    <message>
        <source>The entry %1 points outside the package folder and was skipped.</source>
        <translation>Der Eintrag %1 zeigt aus dem Paketordner hinaus und wurde übersprungen.</translation>
    </message>
    <message>
        <source>The entry %1 is a link or a special file and was skipped.</source>
        <translation>Der Eintrag %1 ist eine Verknüpfung oder eine Spezialdatei und wurde übersprungen.</translation>
    </message>
    <message>
        <source>The password is wrong or missing for %1.</source>
        <translation>Das Passwort für %1 ist falsch oder fehlt.</translation>
    </message>
    <message>
        <source>Extraction stopped: the package would write more than %1.</source>
        <translation>Entpacken angehalten: Das Paket würde mehr als %1 schreiben.</translation>
    </message>
    <message>
        <source>%1 is encrypted and compressed with Deflate64, which cannot be unpacked here.</source>
        <translation>%1 ist verschlüsselt und mit Deflate64 komprimiert; das lässt sich hier nicht entpacken.</translation>
    </message>
    <message>
        <source>Could not load resource file %1
%2</source>
        <translation>Ressourcendatei %1 konnte nicht geladen werden
%2</translation>
    </message>
</context>
<context>
    <name>SoundConvert</name>
    <message>
        <source>%1 could not be read as a sound: %2.</source>
        <translation>%1 konnte nicht als Klang gelesen werden: %2.</translation>
    </message>
    <message>
        <source>it holds no samples</source>
        <translation>sie enthält keine Samples</translation>
    </message>
    <message>
        <source>%1 could not be resampled: %2.</source>
        <translation>Die Abtastrate von %1 konnte nicht umgerechnet werden: %2.</translation>
    </message>
    <message>
        <source>%1 could not be converted: %2.</source>
        <translation>%1 konnte nicht umgewandelt werden: %2.</translation>
    </message>
    <message>
        <source>%1 could not be read: %2.</source>
        <translation>%1 konnte nicht gelesen werden: %2.</translation>
    </message>
</context>
<context>
    <name>SoundSystem</name>
    <message>
        <source>Could not initialize sound/music subsystem!</source>
        <translation>Das Klang- und Musiksystem konnte nicht gestartet werden!</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>FEHLER</translation>
    </message>
    <message>
        <source>Error while opening sound<byte value="xd"/>
%1</source>
        <translation>Fehler beim Öffnen des Klangs<byte value="xd"/>
%1</translation>
    </message>
    <message>
        <source>This command failed because FSOUND_Init was not called</source>
        <translation>Dieser Befehl schlug fehl, weil FSOUND_Init nicht aufgerufen wurde</translation>
    </message>
    <message>
        <source>Error initializing output device.</source>
        <translation>Fehler beim Starten des Ausgabegeräts.</translation>
    </message>
    <message>
        <source>File not found</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>Unknown file format</source>
        <translation>Unbekanntes Dateiformat</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>Fehler beim Laden der Datei</translation>
    </message>
</context>
<context>
    <name>StillPreviews</name>
    <message>
        <source>Unable to load image: %1</source>
        <translation>Bild kann nicht geladen werden: %1</translation>
    </message>
</context>
<context>
    <name>ThemeChecker</name>
    <message>
        <source>it is longer than %1 characters and reads back cut</source>
        <translation>er ist länger als %1 Zeichen und wird gekürzt gelesen</translation>
    </message>
    <message>
        <source>a line break in it ends its line in the file</source>
        <translation>ein Zeilenumbruch darin beendet seine Zeile in der Datei</translation>
    </message>
    <message>
        <source>reading drops the blanks at its ends</source>
        <translation>beim Lesen fallen die Leerzeichen an seinen Enden weg</translation>
    </message>
    <message>
        <source>reading drops the quotes around it</source>
        <translation>beim Lesen fallen die Anführungszeichen um ihn weg</translation>
    </message>
    <message>
        <source>a picture of another kind</source>
        <translation>ein Bild anderer Art</translation>
    </message>
    <message>
        <source>a %1 picture</source>
        <translation>ein %1-Bild</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is an absolute path: it will not exist on the player&apos;s machine</source>
        <translation>„%1“ ist ein absoluter Pfad: Auf dem Rechner des Spielers wird es ihn nicht geben</translation>
    </message>
    <message>
        <source>Frame %1 of %2</source>
        <translation>Einzelbild %1 von %2</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot;</source>
        <translation>%1 „%2“</translation>
    </message>
    <message>
        <source>%1 names no file to play</source>
        <translation>%1 nennt keine Datei zum Abspielen</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; lies outside the folder %3: a package cannot hold it under that name</source>
        <translation>%1 „%2“ liegt außerhalb des Ordners %3: Ein Paket kann sie unter diesem Namen nicht enthalten</translation>
    </message>
    <message>
        <source>A Theme Type 0 file does not store the %1 section: saving drops it</source>
        <translation>Eine Theme-Datei vom Typ 0 speichert den Abschnitt %1 nicht: Beim Speichern geht er verloren</translation>
    </message>
    <message>
        <source>Still frame needs to be a whole number from 1 to %1!</source>
        <translation>Das Standbild muss eine ganze Zahl von 1 bis %1 sein!</translation>
    </message>
    <message>
        <source>%1 frames from frame %2 on lie beyond the reach of a 16-bit strip offset: the game cannot show them</source>
        <translation>%1: Die Einzelbilder ab Einzelbild %2 liegen jenseits der Reichweite eines 16-Bit-Streifenversatzes: Das Spiel kann sie nicht zeigen</translation>
    </message>
    <message>
        <source>Starting frame %1 lies above the number of frames (%2): the animation stays on one frame</source>
        <translation>Das erste Einzelbild %1 liegt über der Anzahl der Einzelbilder (%2): Die Animation bleibt auf einem Einzelbild stehen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour: three whole numbers from 0 to 255 separated by commas, without blanks</source>
        <translation>„%1“ ist keine Farbe: drei ganze Zahlen von 0 bis 255, durch Kommas getrennt, ohne Leerzeichen</translation>
    </message>
    <message>
        <source>The character &quot;%1&quot; (U+%2) cannot be stored in a theme file: the theme cannot be saved</source>
        <translation>Das Zeichen „%1“ (U+%2) kann nicht in einer Theme-Datei gespeichert werden: Das Theme lässt sich nicht speichern</translation>
    </message>
    <message>
        <source>The text will not load as written: %1</source>
        <translation>Der Text wird nicht so geladen, wie er geschrieben ist: %1</translation>
    </message>
    <message>
        <source>The description still holds the line &quot;%1&quot; where your own words belong</source>
        <translation>Die Beschreibung enthält noch die Zeile „%1“, wo Ihre eigenen Worte hingehören</translation>
    </message>
    <message>
        <source>a section line</source>
        <translation>eine Abschnittszeile</translation>
    </message>
    <message>
        <source>a key of the section above it</source>
        <translation>ein Schlüssel des Abschnitts darüber</translation>
    </message>
    <message>
        <source>Description line %1 &quot;%2&quot; reads as %3 when the theme loads</source>
        <translation>Beschreibungszeile %1 „%2“ wird beim Laden des Themes als %3 gelesen</translation>
    </message>
    <message>
        <source>%1 %2 (%3)</source>
        <translation>%1 %2 (%3)</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>cannot be read as an image</source>
        <translation>kann nicht als Bild gelesen werden</translation>
    </message>
    <message>
        <source>is %1, not a Windows bitmap or JPEG: the game cannot show it</source>
        <translation>ist %1, keine Windows-Bitmap und kein JPEG: Das Spiel kann es nicht zeigen</translation>
    </message>
    <message>
        <source>is %1x%2 pixels, not %3x%4</source>
        <translation>ist %1x%2 Pixel groß, nicht %3x%4</translation>
    </message>
    <message>
        <source>is no wave file that can be played</source>
        <translation>ist keine abspielbare Wave-Datei</translation>
    </message>
    <message>
        <source>cannot be played: %1</source>
        <translation>kann nicht abgespielt werden: %1</translation>
    </message>
    <message>
        <source>Package entries &quot;%1&quot; and &quot;%2&quot; differ only in letter case: on Windows one hides the other</source>
        <translation>Die Paketeinträge „%1“ und „%2“ unterscheiden sich nur in der Groß-/Kleinschreibung: Unter Windows verdeckt einer den anderen</translation>
    </message>
    <message>
        <source>Package entry &quot;%1&quot; is named by no included section</source>
        <translation>Den Paketeintrag „%1“ nennt kein aufgenommener Abschnitt</translation>
    </message>
</context>
<context>
    <name>ThemeFileWriter</name>
    <message>
        <source>The theme cannot be saved: the field &quot;%1&quot; holds the character &quot;%2&quot; (U+%3), which a theme file cannot store. Replace it and save again.</source>
        <translation>Das Theme kann nicht gespeichert werden: Das Feld „%1“ enthält das Zeichen „%2“ (U+%3), das eine Theme-Datei nicht speichern kann. Ersetzen Sie es und speichern Sie erneut.</translation>
    </message>
    <message>
        <source>The theme type %1 cannot be saved.</source>
        <translation>Der Theme-Typ %1 kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Could not save %1:
%2</source>
        <translation>%1 konnte nicht gespeichert werden:
%2</translation>
    </message>
</context>
<context>
    <name>ThemeLoader</name>
    <message>
        <source>Could not load %1.<byte value="xd"/>Location: Themetype</source>
        <translation>%1 konnte nicht geladen werden.<byte value="xd"/>Stelle: Themetype</translation>
    </message>
    <message>
        <source>Could not load %1.
Its theme type &quot;%2&quot; is not known: only Theme Type 0 and Theme Type 1 can be loaded.</source>
        <translation>%1 konnte nicht geladen werden.
Sein Theme-Typ „%2“ ist unbekannt: Nur Theme-Typ 0 und Theme-Typ 1 lassen sich laden.</translation>
    </message>
    <message>
        <source>Theme Type 1 REQUIRES a Resource File!</source>
        <translation>Theme-Typ 1 BRAUCHT eine Ressourcendatei!</translation>
    </message>
</context>
<context>
    <name>ThemeSection</name>
    <message>
        <source>Graphical User Interface</source>
        <translation>Grafische Oberfläche</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Blocks</source>
        <translation>Blöcke</translation>
    </message>
    <message>
        <source>Internet Background</source>
        <translation>Internet-Hintergrund</translation>
    </message>
    <message>
        <source>Special Window</source>
        <translation>Spezialfenster</translation>
    </message>
    <message>
        <source>Next Block Window</source>
        <translation>Fenster „Nächster Block“</translation>
    </message>
    <message>
        <source>Block Explosion</source>
        <translation>Blockexplosion</translation>
    </message>
    <message>
        <source>Block Bomb</source>
        <translation>Blockbombe</translation>
    </message>
    <message>
        <source>Miscellaneous Images</source>
        <translation>Sonstige Bilder</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Klänge</translation>
    </message>
    <message>
        <source>Theme Info</source>
        <translation>Theme-Angaben</translation>
    </message>
</context>
</TS>
