<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage: stakko-theme COMMAND [OPTIONS]
</source>
        <translation>Aufruf: stakko-theme BEFEHL [OPTIONEN]
</translation>
    </message>
    <message>
        <source>Options:
  -s KEY=VALUE          set a field (KEY as in the theme file: name, bgimage, Bombfilename,
                        includebackground, themetype, ...); fields are set in order
  --set-file KEY=FILE   set a field to the text of FILE (UTF-8), e.g. the description
  -o FILE               where to write
  --from DIR            where build looks up the theme&apos;s files
  --relink              let build store files named absolutely or outside DIR under
                        their own names
  --password PW         answer a package&apos;s password question with PW
  --max-unpacked-bytes N
                        stop unpacking a package that would write more than N bytes
                        (at most and by default 2147483648); what it wrote is removed
  --lang CODE           speak the language CODE (de, en, ...) instead of the system&apos;s
  --help, --version

Messages the editor would show in a box are printed to stderr as &quot;TITLE: TEXT&quot;.
Exit status: 0 done, 1 an error message was shown or writing failed, 2 usage error.
A theme that does not load is never written over.
</source>
        <translation>Optionen:
  -s KEY=VALUE          ein Feld setzen (KEY wie in der Theme-Datei: name, bgimage,
                        Bombfilename, includebackground, themetype, ...); die Felder
                        werden der Reihe nach gesetzt
  --set-file KEY=FILE   ein Feld auf den Text von FILE (UTF-8) setzen, z. B. die
                        Beschreibung
  -o FILE               wohin geschrieben wird
  --from DIR            wo build die Dateien des Themes sucht
  --relink              build Dateien, die absolut oder außerhalb von DIR benannt sind,
                        unter ihrem eigenen Namen speichern lassen
  --password PW         die Passwortfrage eines Pakets mit PW beantworten
  --max-unpacked-bytes N
                        das Entpacken eines Pakets abbrechen, das mehr als N Bytes
                        schreiben würde (höchstens und standardmäßig 2147483648); was
                        es schon geschrieben hat, wird entfernt
  --lang CODE           die Sprache CODE (de, en, ...) statt der des Systems sprechen
  --help, --version

Meldungen, die der Editor in einem Fenster zeigen würde, gehen als &quot;TITEL: TEXT&quot;
nach stderr.
Exit-Status: 0 erledigt, 1 eine Fehlermeldung wurde gezeigt oder das Schreiben schlug
fehl, 2 Aufruffehler.
Ein Theme, das sich nicht laden lässt, wird nie überschrieben.
</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 braucht einen Wert</translation>
    </message>
    <message>
        <source>expected KEY=VALUE, got &quot;%1&quot;</source>
        <translation>KEY=VALUE erwartet, nicht &quot;%1&quot;</translation>
    </message>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>--max-unpacked-bytes takes 1 to %1, not &quot;%2&quot;</source>
        <translation>--max-unpacked-bytes nimmt 1 bis %1, nicht &quot;%2&quot;</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>unbekannte Option %1</translation>
    </message>
    <message>
        <source>unknown field &quot;%1&quot;</source>
        <translation>unbekanntes Feld &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 takes 0 to %2, not &quot;%3&quot;</source>
        <translation>%1 nimmt 0 bis %2, nicht &quot;%3&quot;</translation>
    </message>
    <message>
        <source>wrong number of arguments for %1</source>
        <translation>falsche Anzahl von Argumenten für %1</translation>
    </message>
    <message>
        <source>What each code means and what to do: %1</source>
        <translation>Was jeder Code bedeutet und was zu tun ist: %1</translation>
    </message>
    <message>
        <source>new needs -o OUT</source>
        <translation>new braucht -o OUT</translation>
    </message>
    <message>
        <source>Error: %1 did not load as a theme, so it was not written.</source>
        <translation>Fehler: %1 ließ sich nicht als Theme laden und wurde daher nicht geschrieben.</translation>
    </message>
    <message>
        <source>Error: the description holds characters a theme file cannot store</source>
        <translation>Fehler: Die Beschreibung enthält Zeichen, die eine Theme-Datei nicht speichern kann</translation>
    </message>
    <message>
        <source>pack needs -o PACKAGE.zip and at least one file</source>
        <translation>pack braucht -o PACKAGE.zip und mindestens eine Datei</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>%1: %2 files</source>
        <translation>%1: %2 Dateien</translation>
    </message>
    <message>
        <source>relinked %1: %2</source>
        <translation>neu verknüpft %1: %2</translation>
    </message>
    <message>
        <source>Write a new theme with the editor&apos;s defaults and the given fields.</source>
        <translation>Ein neues Theme mit den Vorgaben des Editors und den angegebenen Feldern schreiben.</translation>
    </message>
    <message>
        <source>Load THEME as the editor does, set fields, write it (back to THEME by default).</source>
        <translation>THEME wie der Editor laden, Felder setzen, schreiben (standardmäßig nach THEME).</translation>
    </message>
    <message>
        <source>Load THEME as the editor does and print every field as one JSON object.</source>
        <translation>THEME wie der Editor laden und jedes Feld in einem JSON-Objekt ausgeben.</translation>
    </message>
    <message>
        <source>Print the generated description (Windows-1252, CRLF) of THEME or of a new theme.</source>
        <translation>Die erzeugte Beschreibung (Windows-1252, CRLF) von THEME oder eines neuen Themes
ausgeben.</translation>
    </message>
    <message>
        <source>Unpack a resource package and print the folder it went to.</source>
        <translation>Ein Ressourcenpaket entpacken und den Ordner ausgeben, in den es entpackt wurde.</translation>
    </message>
    <message>
        <source>Write a resource package; names are stored relative to DIR (default: here).</source>
        <translation>Ein Ressourcenpaket schreiben; Namen relativ zu DIR speichern (Standard: hier).</translation>
    </message>
    <message>
        <source>Load THEME as the editor does and list every problem the game would meet, errors
first, as lines or (--json) one JSON array; exit status 1 when any is an error.</source>
        <translation>THEME wie der Editor laden und jedes Problem auflisten, auf das das Spiel stoßen
würde, Fehler zuerst, als Zeilen oder (--json) als ein JSON-Array; Exit-Status 1,
wenn eines davon ein Fehler ist.</translation>
    </message>
    <message>
        <source>Write the resource package of a Type 1 theme from the files it names, looked up
in DIR (default: its unpacked package, else its folder), to its resource file
(or PACKAGE). Files named by absolute paths or outside DIR (&quot;..&quot;, links
leading out) are refused; --relink stores them under their own names and
saves the theme with the new names. Nothing is written when a file is missing
or refused; exit status 1 then.</source>
        <translation>Das Ressourcenpaket eines Themes vom Typ 1 aus den Dateien schreiben, die es nennt,
gesucht in DIR (Standard: sein entpacktes Paket, sonst sein Ordner), in seine
Ressourcendatei (oder PACKAGE). Dateien mit absoluten Pfaden oder außerhalb von DIR
(&quot;..&quot;, hinausführende Links) werden abgelehnt; --relink speichert sie unter ihren
eigenen Namen und speichert das Theme mit den neuen Namen. Fehlt eine Datei oder
wird sie abgelehnt, wird nichts geschrieben; der Exit-Status ist dann 1.</translation>
    </message>
    <message>
        <source>Take art (an animated GIF or WebP, a sprite sheet, pictures, a folder of them, a
sound, music) to the game&apos;s form for the row KEY (bgimage, ifacemain, door1,
rotate, midi, ...): files written into DIR (default: where build looks), the
row&apos;s fields set, THEME saved and a Type 1 package rebuilt; whole or nothing.</source>
        <translation>Material (ein animiertes GIF oder WebP, einen Bogen, Bilder, einen Ordner davon,
einen Klang, Musik) in die Form des Spiels für die Zeile KEY (bgimage, ifacemain,
door1, rotate, midi, ...) bringen: Dateien nach DIR geschrieben (Standard: wo build
sucht), die Felder der Zeile gesetzt, THEME gespeichert und ein Paket vom Typ 1 neu
erstellt; ganz oder gar nicht.</translation>
    </message>
    <message>
        <source>Print every field key that -s takes, one per line, in the order dump prints them.</source>
        <translation>Jeden Feldschlüssel ausgeben, den -s annimmt, einen pro Zeile, in der Reihenfolge
von dump.</translation>
    </message>
    <message>
        <source>Commands:</source>
        <translation>Befehle:</translation>
    </message>
    <message>
        <source>no command given</source>
        <translation>kein Befehl angegeben</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>unbekannter Befehl %1</translation>
    </message>
    <message>
        <source>%1 takes WIDTHxHEIGHT of whole numbers from 1, not &quot;%2&quot;</source>
        <translation>%1 nimmt BREITExHÖHE in ganzen Zahlen ab 1, nicht &quot;%2&quot;</translation>
    </message>
    <message>
        <source>--background takes R,G,B from 0 to 255, not &quot;%1&quot;</source>
        <translation>--background nimmt R,G,B von 0 bis 255, nicht &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 takes %2, not &quot;%3&quot;</source>
        <translation>%1 nimmt %2, nicht &quot;%3&quot;</translation>
    </message>
    <message>
        <source>--quality takes 1 to 100, not &quot;%1&quot;</source>
        <translation>--quality nimmt 1 bis 100, nicht &quot;%1&quot;</translation>
    </message>
    <message>
        <source>unknown option %1 for import</source>
        <translation>unbekannte Option %1 für import</translation>
    </message>
    <message>
        <source>import needs THEME KEY SOURCE...</source>
        <translation>import braucht THEME KEY SOURCE...</translation>
    </message>
    <message>
        <source>import takes no key &quot;%1&quot;; it takes %2</source>
        <translation>import nimmt keinen Schlüssel &quot;%1&quot;, sondern %2</translation>
    </message>
    <message>
        <source>--size is for interface screens and miscellaneous images</source>
        <translation>--size gilt nur für Bildschirme der Oberfläche und sonstige Bilder</translation>
    </message>
    <message>
        <source>%1: rebuilt</source>
        <translation>%1: neu erstellt</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a message box&apos;s title and text</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>stakko-theme: %1
Try &apos;stakko-theme --help&apos;.</source>
        <translation>stakko-theme: %1
Weitere Informationen mit »stakko-theme --help«.</translation>
    </message>
</context>
</TS>
