<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>decant</name>
    <message>
        <location filename="../../../app/resources/ui/DocumentationWindow.ui"/>
        <source>Documentation</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/DocumentationWindow.ui"/>
        <source>Getting Started</source>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/DocumentationWindow.ui"/>
        <source>Styles</source>
        <translation>Umwandlungsarten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/DocumentationWindow.ui"/>
        <source>Sound and Subtitles</source>
        <translation>Ton und Untertitel</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/DocumentationWindow.ui"/>
        <source>What Plays Where</source>
        <translation>Was läuft wo</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/DocumentationWindow.ui"/>
        <source>When It Fails</source>
        <translation>Wenn es scheitert</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/DocumentationWindow.ui"/>
        <source>Questions</source>
        <translation>Fragen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/DocumentationWindow.ui"/>
        <source>Licences</source>
        <translation>Lizenzen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Decant</source>
        <translation>Decant</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>File name</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Looking into the file</source>
        <translation>Datei wird untersucht</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Leave this file out and go on with the next one</source>
        <translation>Diese Datei auslassen und mit der nächsten weitermachen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>What the file holds</source>
        <translation>Inhalt der Datei</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Subtitle file</source>
        <translation>Untertiteldatei</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>So&amp;und:</source>
        <translation>&amp;Ton:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Sound track</source>
        <translation>Tonspur</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>The sound track that the MP4 file will have</source>
        <translation>Die Tonspur, die die MP4-Datei haben wird</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Place:</source>
        <translation>&amp;Ziel:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Place of the converted file</source>
        <translation>Ziel der umgewandelten Datei</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Where the MP4 file will be written</source>
        <translation>Wohin die MP4-Datei geschrieben wird</translation>
    </message>
    <message>
        <location filename="../../../app/controller/WindowTexts.cpp"/>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Start Conversion</source>
        <translation>Umwandlung starten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Convert this file</source>
        <translation>Diese Datei umwandeln</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Conversion style:</source>
        <translation>Umwandlungsart:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Plays Everywhere</source>
        <translation>Läuft überall</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Stereo AAC sound for phones, tablets, consoles and televisions</source>
        <translation>AAC-Ton in Stereo für Telefone, Tablets, Konsolen und Fernseher</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>High Speed &amp;&amp; Quality</source>
        <translation>Schnell und hochwertig</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Copies sound where it can, keeps surround sound</source>
        <translation>Übernimmt den Ton, wo es geht, und behält Surround-Ton</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>High Speed &amp; Quality</source>
        <translation>Schnell und hochwertig</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Custom</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>You say what becomes of each kind of sound</source>
        <translation>Für jede Art von Ton selbst festlegen, was daraus wird</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Show or hide the options of this style</source>
        <translation>Optionen dieser Umwandlungsart ein- oder ausblenden</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Sound becomes stereo AAC, which every device plays. Tracks that are AAC already are copied.</source>
        <translation>Der Ton wird zu AAC in Stereo, das jedes Gerät abspielt. AAC-Tonspuren werden unverändert übernommen.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Keep a surround track &amp;beside the stereo track</source>
        <translation>&amp;Surround-Tonspur neben der Stereo-Tonspur behalten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Players that can choose tracks offer both. Only a 5.1 track in AC3 or DTS of the same language is taken.</source>
        <translation>Geräte mit Tonspurwahl bieten beide an. Übernommen wird nur eine 5.1-Tonspur in AC3 oder DTS in derselben Sprache.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Convert a DTS surround track to &amp;AC3</source>
        <translation>DTS-Surround-Tonspur in &amp;AC3 umwandeln</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Few players take DTS from an MP4 file. Off copies the track as it is.</source>
        <translation>Nur wenige Geräte spielen DTS aus einer MP4-Datei ab. Ausgeschaltet wird die Tonspur unverändert übernommen.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Sound that is AAC or AC3 already is copied, which takes seconds and loses nothing. Other sound becomes AC3. Some devices play AC3 only through an amplifier.</source>
        <translation>Ton in AAC oder AC3 wird übernommen; das dauert Sekunden und kostet keine Qualität. Anderer Ton wird zu AC3. Manche Geräte geben AC3 nur über einen Verstärker wieder.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Make AC3 &amp;surround sound stereo</source>
        <translation>AC3-&amp;Surround auf Stereo abmischen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>For two loudspeakers. Off copies the track with all its channels.</source>
        <translation>Für zwei Lautsprecher. Aus übernimmt die Spur mit allen Kanälen.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Make &amp;DTS surround sound stereo</source>
        <translation>DTS-Surround auf Stereo ab&amp;mischen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Off keeps all channels of the track, as AC3.</source>
        <translation>Aus behält alle Kanäle der Spur, als AC3.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>What becomes of each kind of sound. AAC is always copied.</source>
        <translation>Was aus welcher Art von Ton wird. AAC wird immer übernommen.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, stereo:</source>
        <translation>AC3, Stereo:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, stereo becomes</source>
        <translation>AC3, Stereo wird zu</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AAC, stereo</source>
        <translation>AAC, Stereo</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, stereo</source>
        <translation>AC3, Stereo</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, surround</source>
        <translation>AC3, Surround</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/AlertLabel.cpp"/>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Copy</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, surround:</source>
        <translation>AC3, Surround:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, surround becomes</source>
        <translation>AC3, Surround wird zu</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>DTS, stereo:</source>
        <translation>DTS, Stereo:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>DTS, stereo becomes</source>
        <translation>DTS, Stereo wird zu</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>DTS, surround:</source>
        <translation>DTS, Surround:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>DTS, surround becomes</source>
        <translation>DTS, Surround wird zu</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>MP3:</source>
        <translation>MP3:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>MP3 becomes</source>
        <translation>MP3 wird zu</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Vorbis:</source>
        <translation>Vorbis:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Vorbis becomes</source>
        <translation>Vorbis wird zu</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Anything else:</source>
        <translation>Alles andere:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Anything else becomes</source>
        <translation>Alles andere wird zu</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Movies go in, MP4 files come out</source>
        <translation>Filme hinein, MP4-Dateien heraus</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Drop movies here</source>
        <translation>Filme hier ablegen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>or press Add. Subtitle files dropped with a movie of the same name go with it.</source>
        <translation>oder „Hinzufügen“ drücken. Untertiteldateien gleichen Namens kommen mit.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Conversions</source>
        <translation>Umwandlungen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Queue</source>
        <translation>&amp;Warteschlange</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Add Movies…</source>
        <translation>&amp;Filme hinzufügen …</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Choose movies and subtitle files to convert</source>
        <translation>Filme und Untertiteldateien zum Umwandeln auswählen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Add the files whose names were copied</source>
        <translation>Die Dateien hinzufügen, deren Namen kopiert wurden</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/window/MainWindowDress.cpp"/>
        <source>Pause Queue</source>
        <translation>Warteschlange anhalten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Remove Finished</source>
        <translation>&amp;Fertige entfernen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Clean</source>
        <translation>Aufräumen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Take finished conversions off the list; their files stay</source>
        <translation>Fertige Umwandlungen aus der Liste nehmen; die Dateien bleiben</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/window/JobActions.cpp"/>
        <source>Pause Con&amp;version</source>
        <translation>Umwandlung &amp;anhalten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/window/JobActions.cpp"/>
        <source>&amp;Show File</source>
        <translation>Datei an&amp;zeigen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Show S&amp;ource</source>
        <translation>&amp;Quelle anzeigen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Re&amp;move</source>
        <translation>En&amp;tfernen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Select A&amp;ll</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Pr&amp;eferences…</source>
        <translation>Ein&amp;stellungen …</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Settings of conversions and of the program</source>
        <translation>Einstellungen für Umwandlungen und Programm</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Main Window</source>
        <translation>&amp;Hauptfenster</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Documentation</source>
        <translation>&amp;Dokumentation</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>How to get the best from Decant</source>
        <translation>Wie sich aus Decant das Beste herausholen lässt</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Which Style to Choose</source>
        <translation>Welche Umwandlungsart &amp;wählen?</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>What Plays W&amp;here</source>
        <translation>Was &amp;läuft wo?</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>More About De&amp;cant</source>
        <translation>&amp;Mehr über Decant</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/resources/ui/PromotionWindow.ui"/>
        <source>Write to &amp;Support…</source>
        <translation>An den &amp;Support schreiben …</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Test New Versions…</source>
        <translation>&amp;Neue Versionen testen …</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/resources/ui/PromotionWindow.ui"/>
        <source>Decant on the We&amp;b</source>
        <translation>Decant &amp;im Web</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/resources/ui/PromotionWindow.ui"/>
        <source>Store &amp;Page</source>
        <translation>Seite im Sto&amp;re</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Open in the Store Pro&amp;gram</source>
        <translation>Im Store-&amp;Programm öffnen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/resources/ui/PromotionWindow.ui"/>
        <source>&amp;Rate Decant</source>
        <translation>Decant &amp;bewerten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;About Decant</source>
        <translation>&amp;Über Decant</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>File name e&amp;xtension:</source>
        <translation>Datei&amp;endung:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>File name extension</source>
        <translation>Dateiendung</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Both hold the same; some Apple programs show subtitles only in .m4v files</source>
        <translation>Beide enthalten dasselbe; manche Apple-Programme zeigen Untertitel nur in .m4v-Dateien</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>.mp4</source>
        <translation>.mp4</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>.m4v</source>
        <translation>.m4v</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;New files go:</source>
        <translation>&amp;Neue Dateien kommen:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Where new files go</source>
        <translation>Wohin neue Dateien kommen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>To the top of the queue</source>
        <translation>An den Anfang der Warteschlange</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>To the bottom of the queue</source>
        <translation>Ans Ende der Warteschlange</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Convert files without asking</source>
        <translation>Dateien &amp;ohne Nachfrage umwandeln</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Each file is queued with the sound and place that Decant would suggest.</source>
        <translation>Jede Datei wird mit der Tonspur und dem Ziel eingereiht, die Decant vorschlagen würde.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Make &amp;streamable files</source>
        <translation>&amp;Streamingfähige Dateien erzeugen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Web players can begin before the whole file has arrived. Takes a little longer.</source>
        <translation>Die Wiedergabe im Web kann beginnen, bevor die ganze Datei angekommen ist. Dauert etwas länger.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Take finished conversions &amp;off the list</source>
        <translation>&amp;Fertige Umwandlungen aus der Liste nehmen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Quit when everything is converted</source>
        <translation>&amp;Beenden, wenn alles umgewandelt ist</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Dispose of the source after a successful conversion</source>
        <translation>Quelldatei nach erfolgreicher Umwandlung entfernen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>How the source is disposed of</source>
        <translation>Wie die Quelldatei entfernt wird</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Move it to the Trash</source>
        <translation>In den Papierkorb verschieben</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Delete it at once; it cannot be brought back</source>
        <translation>Sofort löschen; sie lässt sich nicht wiederherstellen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Only when the new file is on the disk and as long as its source; else the source stays.</source>
        <translation>Nur wenn die neue Datei auf dem Datenträger liegt und so lange läuft wie ihre Quelle; sonst bleibt die Quelle erhalten.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;AAC:</source>
        <translation>&amp;AAC:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Bit rate of AAC sound</source>
        <translation>Bitrate von AAC-Ton</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>96 kb/s</source>
        <translation>96 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>128 kb/s</source>
        <translation>128 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>160 kb/s</source>
        <translation>160 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>192 kb/s</source>
        <translation>192 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>AC3, &amp;stereo:</source>
        <translation>AC3, &amp;Stereo:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Bit rate of stereo AC3 sound</source>
        <translation>Bitrate von AC3-Ton in Stereo</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>224 kb/s</source>
        <translation>224 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>256 kb/s</source>
        <translation>256 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>AC3, s&amp;urround:</source>
        <translation>AC3, S&amp;urround:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Bit rate of surround AC3 sound</source>
        <translation>Bitrate von AC3-Ton in Surround</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>384 kb/s</source>
        <translation>384 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>448 kb/s</source>
        <translation>448 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>512 kb/s</source>
        <translation>512 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>576 kb/s</source>
        <translation>576 kb/s</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Volume:</source>
        <translation>&amp;Lautstärke:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Bit rates and volume have an effect on sound that is converted; sound that is copied stays as it is.</source>
        <translation>Bitraten und Lautstärke wirken nur auf umgewandelten Ton; übernommener Ton bleibt, wie er ist.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Convert &amp;HE-AAC sound</source>
        <translation>&amp;HE-AAC-Ton umwandeln</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Older players make only half of such a track audible. Off copies it.</source>
        <translation>Ältere Geräte geben solche Tonspuren nur zur Hälfte wieder. Ausgeschaltet werden sie übernommen.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Make AC3 surround sound stereo</source>
        <translation>AC3-Surround auf Stereo abmischen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Make DTS surround sound stereo</source>
        <translation>DTS-Surround auf Stereo abmischen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>These two have an effect under the style High Speed &amp; Quality only.</source>
        <translation>Diese beiden wirken nur bei der Umwandlungsart „Schnell und hochwertig“.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Subtitles</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Keep the subtitles &amp;inside the movie</source>
        <translation>&amp;Im Film enthaltene Untertitel behalten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Text subtitles become subtitles of the MP4 file. Subtitles made of pictures cannot be kept.</source>
        <translation>Text-Untertitel werden zu Untertiteln der MP4-Datei. Bild-Untertitel lassen sich nicht behalten.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Mend the &amp;duration of subtitles</source>
        <translation>&amp;Dauer von Untertiteln korrigieren</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Ends a line where the next one begins, for movies whose lines overlap.</source>
        <translation>Beendet einen Untertitel, sobald der nächste beginnt; für Filme, deren Untertitel sich überlappen.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Letters in subtitle &amp;files:</source>
        <translation>&amp;Zeichensatz von Untertiteldateien:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Letters in subtitle files</source>
        <translation>Zeichensatz von Untertiteldateien</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>None (as the file says)</source>
        <translation>Keiner (wie in der Datei angegeben)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Unicode (UTF-8)</source>
        <translation>Unicode (UTF-8)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Unicode (UTF-16)</source>
        <translation>Unicode (UTF-16)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Thai (CP874)</source>
        <translation>Thailändisch (CP874)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Chinese, simplified (CP936)</source>
        <translation>Chinesisch, vereinfacht (CP936)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Central European (CP1250)</source>
        <translation>Mitteleuropäisch (CP1250)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Cyrillic (CP1251)</source>
        <translation>Kyrillisch (CP1251)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Western (CP1252)</source>
        <translation>Westlich (CP1252)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Greek (CP1253)</source>
        <translation>Griechisch (CP1253)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Turkish (CP1254)</source>
        <translation>Türkisch (CP1254)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Hebrew (CP1255)</source>
        <translation>Hebräisch (CP1255)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Arabic (CP1256)</source>
        <translation>Arabisch (CP1256)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Baltic (CP1257)</source>
        <translation>Baltisch (CP1257)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Vietnamese (CP1258)</source>
        <translation>Vietnamesisch (CP1258)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Western (LATIN1)</source>
        <translation>Westlich (LATIN1)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Central European (LATIN2)</source>
        <translation>Mitteleuropäisch (LATIN2)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>South European (LATIN3)</source>
        <translation>Südeuropäisch (LATIN3)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>North European (LATIN4)</source>
        <translation>Nordeuropäisch (LATIN4)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Turkish (LATIN5)</source>
        <translation>Türkisch (LATIN5)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Nordic (LATIN6)</source>
        <translation>Nordisch (LATIN6)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Baltic (LATIN7)</source>
        <translation>Baltisch (LATIN7)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Celtic (LATIN8)</source>
        <translation>Keltisch (LATIN8)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Western (ISO-8859-1)</source>
        <translation>Westlich (ISO-8859-1)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Central European (ISO-8859-2)</source>
        <translation>Mitteleuropäisch (ISO-8859-2)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>South European (ISO-8859-3)</source>
        <translation>Südeuropäisch (ISO-8859-3)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>North European (ISO-8859-4)</source>
        <translation>Nordeuropäisch (ISO-8859-4)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Cyrillic (ISO-8859-5)</source>
        <translation>Kyrillisch (ISO-8859-5)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Arabic (ISO-8859-6)</source>
        <translation>Arabisch (ISO-8859-6)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Greek (ISO-8859-7)</source>
        <translation>Griechisch (ISO-8859-7)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Hebrew (ISO-8859-8)</source>
        <translation>Hebräisch (ISO-8859-8)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Turkish (ISO-8859-9)</source>
        <translation>Türkisch (ISO-8859-9)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Nordic (ISO-8859-10)</source>
        <translation>Nordisch (ISO-8859-10)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Thai (ISO-8859-11)</source>
        <translation>Thailändisch (ISO-8859-11)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Devanagari (ISO-8859-12)</source>
        <translation>Devanagari (ISO-8859-12)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Baltic (ISO-8859-13)</source>
        <translation>Baltisch (ISO-8859-13)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Celtic (ISO-8859-14)</source>
        <translation>Keltisch (ISO-8859-14)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Western with euro sign (ISO-8859-15)</source>
        <translation>Westlich mit Eurozeichen (ISO-8859-15)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>South-Eastern European (ISO-8859-16)</source>
        <translation>Südosteuropäisch (ISO-8859-16)</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Choose another one when accents or foreign letters come out wrong.</source>
        <translation>Einen anderen wählen, wenn Umlaute, Akzente oder fremde Buchstaben falsch erscheinen.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Places</source>
        <translation>Ziele</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Folders for converted files</source>
        <translation>Ordner für umgewandelte Dateien</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Add Folder…</source>
        <translation>Ordner &amp;hinzufügen …</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Remember a folder for converted files</source>
        <translation>Einen Ordner für umgewandelte Dateien merken</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Forget the selected folder; nothing in it changes</source>
        <translation>Den ausgewählten Ordner vergessen; an seinem Inhalt ändert sich nichts</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Usual place:</source>
        <translation>&amp;Übliches Ziel:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Usual place of converted files</source>
        <translation>Übliches Ziel umgewandelter Dateien</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Language of the sound:</source>
        <translation>&amp;Sprache des Tons:</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Language of the sound</source>
        <translation>Sprache des Tons</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>That of the desktop</source>
        <translation>Die der Arbeitsumgebung</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Spanish</source>
        <translation>Spanisch</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Chinese</source>
        <translation>Chinesisch</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Japanese</source>
        <translation>Japanisch</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Russian</source>
        <translation>Russisch</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>The track in this language is suggested for each movie, AAC first.</source>
        <translation>Für jeden Film wird die Tonspur in dieser Sprache vorgeschlagen, AAC zuerst.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PromotionWindow.ui"/>
        <source>More About Decant</source>
        <translation>Mehr über Decant</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>Your Opinion</source>
        <translation>Deine Meinung</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>How do you like it so far?</source>
        <translation>Wie gefällt es dir bisher?</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>I Am &amp;Happy</source>
        <translation>Ich bin &amp;zufrieden</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>I am happy with it</source>
        <translation>Ich bin damit zufrieden</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>I Am &amp;Not Sure Yet</source>
        <translation>Noch &amp;nicht sicher</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>I Have a &amp;Problem</source>
        <translation>Ich habe ein &amp;Problem</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>&amp;Do Not Ask Again</source>
        <translation>Nicht &amp;mehr fragen</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>That is good to hear! A rating takes a minute and helps others to find Decant.</source>
        <translation>Das freut uns! Eine Bewertung dauert eine Minute und hilft anderen, Decant zu finden.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>&amp;Rate It on the Web</source>
        <translation>Im &amp;Web bewerten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>Opens the page where programs are rated, in the web browser</source>
        <translation>Öffnet die Seite, auf der Programme bewertet werden, im Webbrowser</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>Rate It in the &amp;Store</source>
        <translation>Im &amp;Store bewerten</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>Opens the page of the program in the store</source>
        <translation>Öffnet die Seite des Programms im Store</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>&amp;Not Now</source>
        <translation>&amp;Nicht jetzt</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>Sorry about that. What went wrong, and what had you expected?</source>
        <translation>Das tut uns leid. Was ging schief, und was war erwartet?</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>The name of the movie and what happened help most.</source>
        <translation>Am meisten helfen der Name des Films und was geschah.</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>What went wrong</source>
        <translation>Was schiefging</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>&amp;Send to Support</source>
        <translation>An den &amp;Support senden</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>Opens a message to the support in the mail program</source>
        <translation>Öffnet eine Nachricht an den Support im Mailprogramm</translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/VKRatingWindow.ui"/>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/AlertDialog.cpp"/>
        <source>Problem</source>
        <translation>Problem</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/AlertDialog.cpp"/>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/AlertDialog.cpp"/>
        <location filename="../../../app/WindowMain.cpp"/>
        <location filename="../../../app/controller/Admission.cpp"/>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <location filename="../../../app/controller/SourceDisposal.cpp"/>
        <location filename="../../../app/conversion/ConversionJob.cpp"/>
        <location filename="../../../app/conversion/CutOffSource.cpp"/>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <location filename="../../../app/window/MainWindow.cpp"/>
        <location filename="../../../app/window/MissingForm.cpp"/>
        <location filename="../../../app/window/WindowProgram.cpp"/>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/AlertDialog.cpp"/>
        <location filename="../../../Ostrak/Desktop/VKRatingWindowController.cpp"/>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/AlertLabel.cpp"/>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/ProgressSheet.cpp"/>
        <source>Please wait until the operation finishes</source>
        <translation>Bitte warten, bis der Vorgang beendet ist</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/VKRatingWindowController.cpp"/>
        <source>Confirmation</source>
        <translation>Bestätigung</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/VKRatingWindowController.cpp"/>
        <source>%@ asks for your feedback only rarely and at maximum only once per app-version. Are you sure you want to turn this off completely?</source>
        <translation>%@ fragt nur selten und höchstens einmal je Version nach Rückmeldung. Wirklich ganz abschalten?</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/VKRatingWindowController.cpp"/>
        <source>Turn off feedback dialoge</source>
        <translation>Rückmeldung abschalten</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>%@  …
(Remaining message omitted)</source>
        <translation>%@  …
(Rest der Meldung weggelassen)</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>Fatal Error</source>
        <translation>Schwerwiegender Fehler</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <location filename="../../../app/controller/Intake.cpp"/>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>%@

 You can contact our support with detailed information so that we can fix this problem.

Information: %@</source>
        <translation>%@

 Unser Support kann das Problem beheben, wenn er genaue Angaben dazu erhält.

Information: %@</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Send to support</source>
        <translation>An den Support senden</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <location filename="../../../Ostrak/Ostrak/VKAppMovedHandler.cpp"/>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>Continue</source>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <location filename="../../../app/conversion/FailureExplanation.cpp"/>
        <source>Preparing the Problem Report</source>
        <translation>Problembericht wird vorbereitet</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Ostrak.cpp"/>
        <source>Preparing the Message</source>
        <translation>Nachricht wird vorbereitet</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/VKAppMovedHandler.cpp"/>
        <source>%@ has been moved, but applications should never be moved while they are running.</source>
        <translation>%@ wurde verschoben, aber Programme sollten nie verschoben werden, während sie laufen.</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/VKAppMovedHandler.cpp"/>
        <source>Restart %@</source>
        <translation>%@ neu starten</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/VKAppMovedHandler.cpp"/>
        <source>%@ could not restart itself. Please do so yourself.</source>
        <translation>%@ konnte sich nicht selbst neu starten. Bitte selbst starten.</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Platform/Real/RealTrashCan.cpp"/>
        <source>%1 is not there</source>
        <translation>%1 ist nicht vorhanden</translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Platform/Real/RealTrashCan.cpp"/>
        <source>%1 cannot be moved to the Trash in %2: %3</source>
        <translation>%1 kann nicht in den Papierkorb in %2 verschoben werden: %3</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>-o needs the name of a folder.</source>
        <translation>-o braucht den Namen eines Ordners.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>--subtitle needs the name of a file.</source>
        <translation>--subtitle braucht den Namen einer Datei.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>--audio takes the number of a track, as probe prints it after '#', not '%@'.</source>
        <translation>--audio nimmt die Nummer einer Tonspur, wie probe sie nach „#“ ausgibt, nicht „%@“.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>--set takes KEY=VALUE, not '%@'.</source>
        <translation>--set nimmt SCHLÜSSEL=WERT, nicht „%@“.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>There is no option '%@' here.</source>
        <translation>Die Option „%@“ gibt es hier nicht.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>The option '%@' takes no value.</source>
        <translation>Die Option „%@“ nimmt keinen Wert.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>The option '%@' is given twice.</source>
        <translation>Die Option „%@“ ist zweimal angegeben.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>The option '%@' needs a value.</source>
        <translation>Die Option „%@“ braucht einen Wert.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>No FILE is given.</source>
        <translation>Es ist keine DATEI angegeben.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>reset takes --all or keys, not both.</source>
        <translation>reset nimmt --all oder Schlüssel, nicht beides.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>reset needs a KEY, or --all.</source>
        <translation>reset braucht einen SCHLÜSSEL oder --all.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>%@ needs a KEY.</source>
        <translation>%@ braucht einen SCHLÜSSEL.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>%@ needs a KEY and a VALUE.</source>
        <translation>%@ braucht einen SCHLÜSSEL und einen WERT.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>There is one word too many: '%@'.</source>
        <translation>Es ist ein Wort zu viel angegeben: „%@“.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>settings needs one of list, get, set and reset.</source>
        <translation>settings braucht list, get, set oder reset.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>settings takes list, get, set or reset, not '%@'.</source>
        <translation>settings nimmt list, get, set oder reset, nicht „%@“.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>'%@' is not valid UTF-8.</source>
        <translation>„%@“ ist kein gültiges UTF-8.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>The output could not be written: %@.</source>
        <translation>Die Ausgabe konnte nicht geschrieben werden: %@.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>This build has no window; convert movies with: decant convert FILE</source>
        <translation>Dieses Programm ist ohne Fenster gebaut; Filme umwandeln mit: decant convert DATEI</translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>There is no display to open a window on; convert movies with: decant convert FILE</source>
        <translation>Für ein Fenster fehlt der Bildschirm; Filme umwandeln mit: decant convert DATEI</translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>The file '%@', which tells the version, is missing or damaged; please install the program again.</source>
        <translation>Die Datei „%@“, in der die Version steht, fehlt oder ist beschädigt; bitte das Programm neu installieren.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <location filename="../../../app/window/WindowProgram.cpp"/>
        <source>The settings file '%@' could not be read and is not used; all settings are at their defaults.</source>
        <translation>Die Einstellungsdatei „%@“ konnte nicht gelesen werden und wird nicht verwendet; alle Einstellungen haben ihre Standardwerte.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <location filename="../../../app/window/WindowProgram.cpp"/>
        <source>The settings file could not be read and is kept as '%@'; all settings are back at their defaults.</source>
        <translation>Die Einstellungsdatei konnte nicht gelesen werden und bleibt als „%@“ erhalten; alle Einstellungen haben wieder ihre Standardwerte.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertCommand.cpp"/>
        <source>'%@' is no folder and can't be made one.</source>
        <translation>„%@“ ist kein Ordner und lässt sich nicht als Ordner anlegen.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertCommand.cpp"/>
        <source>'%@' is no folder and can't be made one: %@.</source>
        <translation>„%@“ ist kein Ordner und lässt sich nicht als Ordner anlegen: %@.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>'%@' is a movie and no subtitle file.</source>
        <translation>„%@“ ist ein Film und keine Untertiteldatei.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>The subtitles in '%@' are pictures; only text can be taken.</source>
        <translation>Die Untertitel in „%@“ sind Bilder; nur Text wird angenommen.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>'%@' is not taken; movies end in %@, subtitle files in %@.</source>
        <translation>„%@“ wird nicht angenommen; Filme enden auf %@, Untertiteldateien auf %@.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>There is no movie among the FILEs.</source>
        <translation>Unter den DATEIen ist kein Film.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>'%@' is a folder; with -r the movies in it are converted.</source>
        <translation>„%@“ ist ein Ordner; mit -r werden die Filme darin umgewandelt.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>--subtitle goes with one movie, not with %i.</source>
        <translation>--subtitle gilt für einen Film, nicht für %i.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>Left out, since --subtitle names the subtitles to take: %@</source>
        <translation>Ausgelassen, weil --subtitle die Untertitel nennt: %@</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertRun.cpp"/>
        <location filename="../../../app/cli/DryRun.cpp"/>
        <source>There is no folder to write to.</source>
        <translation>Es gibt keinen Ordner, in den geschrieben werden kann.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/FolderWalk.cpp"/>
        <source>The folder '%@' can't be read: %@.</source>
        <translation>Der Ordner „%@“ kann nicht gelesen werden: %@.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>An empty name names no file.</source>
        <translation>Ein leerer Name bezeichnet keine Datei.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>The name '%@' is not valid UTF-8; please rename it.</source>
        <translation>Der Name „%@“ ist kein gültiges UTF-8; bitte umbenennen.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>The folder that '%@' is in has been removed.</source>
        <translation>Der Ordner, in dem „%@“ liegt, wurde entfernt.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>There is no file '%@'.</source>
        <translation>Eine Datei „%@“ gibt es nicht.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>The file '%@' can't be read: %@.</source>
        <translation>Die Datei „%@“ kann nicht gelesen werden: %@.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>'%@' is a folder, not a movie.</source>
        <translation>„%@“ ist ein Ordner und kein Film.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>'%@' is not a regular file; only files and links to files are taken.</source>
        <translation>„%@“ ist keine gewöhnliche Datei; nur Dateien und Verknüpfungen mit Dateien werden angenommen.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>
Pours movies (mkv, mp4, mov, ogm, wmv, mpg, flv, webm, ts) into MP4 files that
phones, televisions and consoles play. The video is copied as it is, one audio
track is copied or converted, text subtitles are kept.

  probe      tells what movies hold
  convert    converts movies, one after the other
  settings   shows and changes how conversions are made

"decant COMMAND --help" tells more about one of them. Without a command the
window opens, with the FILEs added.

  --help     prints this text
  --version  prints the version

A FILE whose name begins with "-" goes after "--".
</source>
        <translation>
Füllt Filme (mkv, mp4, mov, ogm, wmv, mpg, flv, webm, ts) in MP4-Dateien um, die
Telefone, Fernseher und Konsolen abspielen. Das Video wird unverändert
übernommen, eine Tonspur übernommen oder umgewandelt, Text-Untertitel bleiben.

  probe      sagt, was Filme enthalten
  convert    wandelt Filme um, einen nach dem anderen
  settings   zeigt und ändert, wie umgewandelt wird

„decant BEFEHL --help“ sagt mehr über einen davon. Ohne Befehl öffnet sich das
Fenster, dem die DATEIen hinzugefügt werden.

  --help     gibt diesen Text aus
  --version  gibt die Version aus

Eine DATEI, deren Name mit „-“ beginnt, steht nach „--“.
</translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>
Tells what each FILE holds: size, running time, video, audio tracks with their
numbers, subtitles, and what there is to know before it is converted. The track
marked with "*" is the one that a conversion takes. Nothing is written.

  --json     prints one JSON object a line, one for each FILE

Ends with 0, or with 1 when any FILE can't be converted.
</source>
        <translation>
Sagt, was jede DATEI enthält: Größe, Laufzeit, Video, Tonspuren mit ihren
Nummern, Untertitel und was vor der Umwandlung wissenswert ist. Die Tonspur mit
„*“ ist die, die eine Umwandlung nimmt. Geschrieben wird nichts.

  --json     gibt je Zeile ein JSON-Objekt aus, eines für jede DATEI

Endet mit 0 oder, wenn sich eine DATEI nicht umwandeln lässt, mit 1.
</translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>
Converts the movies among the FILEs, one after the other, each into a file next
to it. Nothing is ever overwritten: where the name is taken, a number is added.
A subtitle file (srt, ass, ssa, smi, sub) among the FILEs is put into the movie
of the same name.

  -o DIR           writes into this folder, which is made when it is missing
  -r               takes folders, too, with all that is in them; hidden files
                   and links to folders are left out
  --set KEY=VALUE  changes a setting for this run only; can be given often
  --audio N        takes the audio track that probe prints as "#N"
  --subtitle FILE  puts this subtitle file into the one movie given
  --dry-run        prints the command lines and writes nothing
  --json           prints one JSON object a line, as things happen

Results go to standard output, all else to standard error. Ends with 0 when all
is done, 1 when any file failed or was refused, 2 when the command line is
wrong. An interrupt stops the running conversion, removes its unfinished output
and keeps what is finished.
</source>
        <translation>
Wandelt die Filme unter den DATEIen um, einen nach dem anderen, jeden in eine
Datei daneben. Nie wird etwas überschrieben: Ist der Name vergeben, kommt eine
Zahl hinzu. Eine Untertiteldatei (srt, ass, ssa, smi, sub) unter den DATEIen
kommt in den gleichnamigen Film.

  -o ORDNER        schreibt in diesen Ordner, der angelegt wird, wenn er fehlt
  -r               nimmt auch Ordner mit allem, was darin ist; versteckte
                   Dateien und Verknüpfungen mit Ordnern bleiben außen vor
  --set SCHLÜSSEL=WERT
                   ändert eine Einstellung nur für diesen Lauf; auch mehrmals
  --audio N        nimmt die Tonspur, die probe als „#N“ ausgibt
  --subtitle DATEI
                   setzt diese Untertiteldatei in den einen angegebenen Film
  --dry-run        gibt die Befehlszeilen aus und schreibt nichts
  --json           gibt je Zeile ein JSON-Objekt aus, sobald etwas geschieht

Ergebnisse gehen auf die Standardausgabe, alles andere auf die Fehlerausgabe.
Endet mit 0, wenn alles erledigt ist, mit 1, wenn eine Datei fehlschlug oder
abgelehnt wurde, mit 2 bei einer falschen Befehlszeile. Eine Unterbrechung
beendet die laufende Umwandlung, entfernt ihre unfertige Ausgabe und behält, was
fertig ist.
</translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>
Shows and changes the stored settings.

  list             prints every setting with its value
  get KEY          prints the value alone
  set KEY VALUE    stores a value; booleans are 0 or 1, choices are numbers
                   counted from 0
  reset KEY...     goes back to the default of these settings
  reset --all      goes back to the default of all but the destination folders
  --json           prints the list as one JSON object

Ends with 0, with 1 when the settings can't be written, and with 2 for a key
that does not exist or a value that is not allowed.
</source>
        <translation>
Zeigt und ändert die gespeicherten Einstellungen.

  list                 gibt jede Einstellung mit ihrem Wert aus
  get SCHLÜSSEL        gibt nur den Wert aus
  set SCHLÜSSEL WERT   speichert einen Wert; Schalter sind 0 oder 1, Auswahlen
                       sind Zahlen, von 0 an gezählt
  reset SCHLÜSSEL...   stellt den Standard dieser Einstellungen wieder her
  reset --all          stellt den Standard von allem wieder her, nur nicht den
                       der Zielordner
  --json               gibt die Liste als ein JSON-Objekt aus

Endet mit 0, mit 1, wenn sich die Einstellungen nicht schreiben lassen, und mit
2 bei einem Schlüssel, den es nicht gibt, oder einem unzulässigen Wert.
</translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>usage: decant probe [--json] FILE…
</source>
        <translation>Aufruf: decant probe [--json] DATEI…
</translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>usage: decant convert [-o DIR] [-r] [--set KEY=VALUE]… [--audio N] [--subtitle FILE] [--dry-run] [--json] FILE…
</source>
        <translation>Aufruf: decant convert [-o ORDNER] [-r] [--set SCHLÜSSEL=WERT]… [--audio N] [--subtitle DATEI] [--dry-run] [--json] DATEI…
</translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>usage: decant settings list [--json] | get KEY | set KEY VALUE | reset KEY… | reset --all
</source>
        <translation>Aufruf: decant settings list [--json] | get SCHLÜSSEL | set SCHLÜSSEL WERT | reset SCHLÜSSEL… | reset --all
</translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>usage: decant [FILE…] | probe … | convert … | settings … | --help | --version
</source>
        <translation>Aufruf: decant [DATEI…] | probe … | convert … | settings … | --help | --version
</translation>
    </message>
    <message>
        <location filename="../../../app/cli/IntakeFeeder.cpp"/>
        <source>'%@' has no audio track.</source>
        <translation>„%@“ hat keine Tonspur.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/IntakeFeeder.cpp"/>
        <source>'%@' has no audio track #%i; it has %@.</source>
        <translation>„%@“ hat keine Tonspur #%i; vorhanden: %@.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/IntakeFeeder.cpp"/>
        <source>The file can't be read.</source>
        <translation>Die Datei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeCommand.cpp"/>
        <source>What the tool says about '%@' can't be understood: %@.</source>
        <translation>Was das Werkzeug über „%@“ sagt, ist nicht zu verstehen: %@.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>%llu bytes</source>
        <translation>%llu Bytes</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>video</source>
        <translation>Video</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>audio</source>
        <translation>Tonspuren</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>subtitles</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>summary</source>
        <translation>Überblick</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProgressLine.cpp"/>
        <source>converting</source>
        <translation>wird umgewandelt</translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProgressLine.cpp"/>
        <source>%@ left</source>
        <translation>noch %@</translation>
    </message>
    <message>
        <location filename="../../../app/cli/SettingsCommand.cpp"/>
        <source>There is no setting '%@'; settings list names them all.</source>
        <translation>Die Einstellung „%@“ gibt es nicht; settings list nennt alle.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/SettingsCommand.cpp"/>
        <source>'%@' is a list of folders, which is not changed here.</source>
        <translation>„%@“ ist eine Liste von Ordnern, die hier nicht geändert wird.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/SettingsCommand.cpp"/>
        <source>The settings file '%@' can't be written.</source>
        <translation>Die Einstellungsdatei „%@“ kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>started</source>
        <translation>begonnen</translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>%@  done in %@: %@</source>
        <translation>%@  fertig nach %@: %@</translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>finished in %@: %@</source>
        <translation>fertig nach %@: %@</translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>%@  failed</source>
        <translation>%@  fehlgeschlagen</translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>%i finished, %i failed</source>
        <translation>%i fertig, %i fehlgeschlagen</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Admission.cpp"/>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <source>You've tried to overwrite the source file with the target file. Thats the worst idea ever.</source>
        <translation>Die Zieldatei sollte die Quelldatei überschreiben. Das ist die schlechteste Idee aller Zeiten.</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Admission.cpp"/>
        <source>You don't seem to have write access to the selected destinatation or it is a read-only filesystem. Please choose another destination.</source>
        <translation>Anscheinend fehlt das Schreibrecht für das gewählte Ziel, oder das Dateisystem ist schreibgeschützt. Bitte ein anderes Ziel wählen.</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Admission.cpp"/>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <source>D'oh</source>
        <translation>Ups</translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>Conversion is in progresss. Are you sure you want to quit?</source>
        <translation>Die Umwandlung läuft noch. Wirklich beenden?</translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>You have now used [APPNAME] more than 20 times, successfully converting %li MKVs to MP4s.</source>
        <translation>[APPNAME] wurde nun mehr als 20 Mal benutzt und hat erfolgreich %li MKVs in MP4s umgewandelt.</translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationMenu.cpp"/>
        <source>Ask Each Time</source>
        <translation>Jedes Mal fragen</translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationMenu.cpp"/>
        <source>Next to Source File</source>
        <translation>Neben der Quelldatei</translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationMenu.cpp"/>
        <source>Add Folder…</source>
        <translation>Ordner hinzufügen …</translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <source>Checking the Destination</source>
        <translation>Ziel wird geprüft</translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <source>You've chosen the 'Next to' default destination for converted MP4 files. Since Apple's SandBox limits access to your files you have to open the folder that contains all MKV files that you want to convert</source>
        <translation>Als Ziel der umgewandelten MP4-Dateien ist „Neben der Quelldatei“ gewählt. Da Apples SandBox den Zugriff auf Dateien beschränkt, muss der Ordner geöffnet werden, der alle umzuwandelnden MKV-Dateien enthält</translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <source>You did not seem to select a folder that contains your MKV.</source>
        <translation>Der gewählte Ordner enthält die MKV-Datei anscheinend nicht.</translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <source>This destination is already bookmarked. You can not add it again.</source>
        <translation>Dieses Ziel ist schon gespeichert und lässt sich nicht noch einmal hinzufügen.</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Intake.cpp"/>
        <source>The file %@ could not be read.</source>
        <translation>Die Datei %@ konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Intake.cpp"/>
        <source>The preferred audio language could not be used.</source>
        <translation>Die bevorzugte Sprache des Tons konnte nicht verwendet werden.</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>%lli or %lli</source>
        <translation>%lli oder %lli</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>%lli, %lli or %lli</source>
        <translation>%lli, %lli oder %lli</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>%lli, %lli or %lli to %lli</source>
        <translation>%lli, %lli oder %lli bis %lli</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>The stored value "%@" of "%@" is out of range (allowed: %@); %lli is used.</source>
        <translation>Der gespeicherte Wert „%@“ von „%@“ ist unzulässig (erlaubt: %@); verwendet wird %lli.</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>0 or 1</source>
        <translation>0 oder 1</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>nothing that can be set as text</source>
        <translation>nichts, was sich als Text setzen lässt</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>a whole number from %lli</source>
        <translation>eine ganze Zahl ab %lli</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>a number from %lli to %lli</source>
        <translation>eine Zahl von %lli bis %lli</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>%lli or %lli to %lli</source>
        <translation>%lli oder %lli bis %lli</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>%lli to %lli</source>
        <translation>%lli bis %lli</translation>
    </message>
    <message>
        <location filename="../../../app/controller/Settings.cpp"/>
        <source>"%@" is not a value of "%@" (allowed: %@)</source>
        <translation>„%@“ ist kein Wert von „%@“ (erlaubt: %@)</translation>
    </message>
    <message>
        <location filename="../../../app/controller/SourceDisposal.cpp"/>
        <source>The converted file %@ could not be deleted: %@</source>
        <translation>Die umgewandelte Datei %@ konnte nicht gelöscht werden: %@</translation>
    </message>
    <message>
        <location filename="../../../app/controller/SourceDisposal.cpp"/>
        <source>The converted file %@ could not be moved to the Trash: %@</source>
        <translation>Die umgewandelte Datei %@ konnte nicht in den Papierkorb verschoben werden: %@</translation>
    </message>
    <message>
        <location filename="../../../app/controller/WindowTexts.cpp"/>
        <source> (Paused)</source>
        <translation> (Angehalten)</translation>
    </message>
    <message>
        <location filename="../../../app/controller/WindowTexts.cpp"/>
        <source> [%li Job(s), %li Queued]</source>
        <translation> [Aufträge: %li, wartend: %li]</translation>
    </message>
    <message>
        <location filename="../../../app/controller/WindowTexts.cpp"/>
        <source>Add to Queue</source>
        <translation>In die Warteschlange</translation>
    </message>
    <message>
        <location filename="../../../app/controller/WindowTexts.cpp"/>
        <source>Version:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <location filename="../../../app/controller/WindowTexts.cpp"/>
        <source>Build:</source>
        <translation>Build:</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/ConversionJob.cpp"/>
        <source>Converting MKV file.</source>
        <translation>MKV-Datei wird umgewandelt.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/ConversionTool.cpp"/>
        <source>The file '%@' can't be converted because the tool '%@' is missing or cannot be run. Please install ffmpeg, or install %@ again.</source>
        <translation>Die Datei „%@“ kann nicht umgewandelt werden, weil das Werkzeug „%@“ fehlt oder nicht ausgeführt werden kann. Bitte ffmpeg installieren oder %@ neu installieren.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/CutOffSource.cpp"/>
        <source>The file '%@' is incomplete: it ends before the movie does. The new file holds what there was. Please get the movie again if you want all of it.</source>
        <translation>Die Datei „%@“ ist unvollständig: Sie hört auf, bevor der Film zu Ende ist. Die neue Datei enthält, was davon da war. Bitte den Film noch einmal beschaffen, wenn er ganz gebraucht wird.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Conversion Failed</source>
        <translation>Umwandlung fehlgeschlagen</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Movie conversion failed because there is not enough free space left on the destination volume. Please make sure your harddisk has enough free space before starting conversion</source>
        <translation>Die Umwandlung ist fehlgeschlagen, weil auf dem Ziellaufwerk nicht genug Platz frei ist. Bitte vor der Umwandlung für genug freien Platz auf der Festplatte sorgen</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Movie conversion failed but it seems the reason is that the disk or network volume to save the movie is having problems. Try converting to a reliable disk and copying the file to its destination later.</source>
        <translation>Die Umwandlung ist fehlgeschlagen, anscheinend weil der Datenträger oder das Netzlaufwerk, auf dem der Film gespeichert werden sollte, Probleme hat. Abhilfe: auf einen zuverlässigen Datenträger umwandeln und die Datei später an ihr Ziel kopieren.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Movie conversion failed because the movie seems to be too damaged to convert - playback may work but converting it is impossible.</source>
        <translation>Die Umwandlung ist fehlgeschlagen, weil der Film dafür anscheinend zu stark beschädigt ist – die Wiedergabe mag gelingen, die Umwandlung ist unmöglich.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Movie conversion failed because you've removed/renamed the source movie file or unmounted it's volume.</source>
        <translation>Die Umwandlung ist fehlgeschlagen, weil die Quelldatei entfernt oder umbenannt oder ihr Laufwerk ausgehängt wurde.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>Movie conversion failed because you are trying to convert a movie with a video track that can't be embedded into MP4s.</source>
        <translation>Die Umwandlung ist fehlgeschlagen, weil sich die Videospur des Films nicht in MP4-Dateien einbetten lässt.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>A problem occured - this is most likely related to the subtitles embedded into the movie. Please disable conversion of embedded subtitles in the preferences and try again.</source>
        <translation>Ein Problem ist aufgetreten – höchstwahrscheinlich liegt es an den Untertiteln im Film. Bitte in den Einstellungen die Umwandlung enthaltener Untertitel abschalten und es noch einmal versuchen.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>A problem occured - this is most likely related to the subtitle file you have specified. Please try again without the subtitle file.</source>
        <translation>Ein Problem ist aufgetreten – höchstwahrscheinlich liegt es an der angegebenen Untertiteldatei. Bitte ohne die Untertiteldatei noch einmal versuchen.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/Diagnosis.cpp"/>
        <source>A problem prevented the file from being converted. You can contact our support with this information so that we can fix this problem.

Command-line: %@
Command-output: %@</source>
        <translation>Ein Problem hat die Umwandlung der Datei verhindert. Mit diesen Angaben kann unser Support das Problem beheben.

Befehlszeile: %@
Ausgabe des Befehls: %@</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/FreeSpace.cpp"/>
        <source>There is not enough free space on your target disk for conversion.</source>
        <translation>Auf dem Ziellaufwerk ist für die Umwandlung nicht genug Platz frei.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/FreeSpace.cpp"/>
        <source>Your target disk doesn't support large files.</source>
        <translation>Das Ziellaufwerk kann keine großen Dateien speichern.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>%@ Conversion Failed</source>
        <translation>%@: Umwandlung fehlgeschlagen</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>%@ has failed to convert the file %@.</source>
        <translation>%@ konnte die Datei %@ nicht umwandeln.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>%@ Conversion Finished</source>
        <translation>%@: Umwandlung fertig</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>%@ has finished converting the file %@.</source>
        <translation>%@ hat die Datei %@ fertig umgewandelt.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/RunPreparation.cpp"/>
        <source>It seems you've removed the file %@ or unmounted it's volume so conversion can't proceed.</source>
        <translation>Anscheinend wurde die Datei %@ entfernt oder ihr Laufwerk ausgehängt; die Umwandlung kann nicht weitergehen.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/RunPreparation.cpp"/>
        <source>The destination %@ can't be written because that would destroy another file that is still needed. Please choose another destination.</source>
        <translation>Das Ziel %@ kann nicht geschrieben werden, weil das eine andere, noch benötigte Datei zerstören würde. Bitte ein anderes Ziel wählen.</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>Queued</source>
        <translation>Wartend</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>Converting</source>
        <translation>Wird umgewandelt</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>Finished</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>%@   Audio: %@</source>
        <translation>%@   Ton: %@</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>%@ (Discarded: %@)</source>
        <translation>%@ (Weggelassen: %@)</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>Status: </source>
        <translation>Status: </translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>%@   ETA: %@</source>
        <translation>%@   Restzeit: %@</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source> [Conversion took: %@]</source>
        <translation> [Dauer der Umwandlung: %@]</translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>%@   Click the arrow at the right to get more information.</source>
        <translation>%@   Ein Klick auf den Pfeil rechts zeigt mehr dazu.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Don't warn again</source>
        <translation>Nicht mehr warnen</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' is an alias. We can't open the target of the alias because of limitations in Apple's 'sandbox'. Please complaint to Apple if you want Aliases to work in sandboxed apps.</source>
        <translation>Die Datei „%@“ ist ein Alias. Sein Ziel lässt sich wegen Beschränkungen in Apples „Sandbox“ nicht öffnen. Sollen Aliasse in Programmen mit Sandbox funktionieren, bitte bei Apple beschweren.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Warning: the file '%@' contains an invalid video codec (%@) and can't be converted by %@.</source>
        <translation>Warnung: Die Datei „%@“ enthält einen ungültigen Videocodec (%@) und kann von %@ nicht umgewandelt werden.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' doesn't contain a H264/MPEG4 video track (videocodec: %@) so the result may not be playable.</source>
        <translation>Die Datei „%@“ enthält keine H264/MPEG4-Videospur (Videocodec: %@), sodass sich das Ergebnis vielleicht nicht abspielen lässt.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' contains a 10-bit video track so the result will not be playable on the iPhone or iPad. It should still play with other players (VLC/Mplayer).</source>
        <translation>Die Datei „%@“ enthält eine 10-Bit-Videospur, sodass sich das Ergebnis auf iPhone und iPad nicht abspielen lässt. Mit anderen Programmen (VLC/Mplayer) sollte es laufen.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' will probably not play back fine on the iPhone/iPad as it has a too large resolution. You can try converting the produced MP4 file using 'QuickTime Player' to a 1080p M4V file to view this video on iOS.</source>
        <translation>Die Datei „%@“ wird auf iPhone und iPad wahrscheinlich nicht gut laufen, weil ihre Auflösung zu hoch ist. Für die Wiedergabe unter iOS lässt sich die erzeugte MP4-Datei mit „QuickTime Player“ in eine M4V-Datei mit 1080p umwandeln.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' will probably not play back fine on the 'Playstation 3' or other devices as it contains more 'reference frames' than the PS3 supports. You can try converting the produced MP4 file using 'QuickTime Player' to a 720p M4V file to view this video on the PS3.</source>
        <translation>Die Datei „%@“ wird auf der „Playstation 3“ und anderen Geräten wahrscheinlich nicht gut laufen, weil sie mehr „Referenzbilder“ enthält, als die PS3 unterstützt. Für die Wiedergabe auf der PS3 lässt sich die erzeugte MP4-Datei mit „QuickTime Player“ in eine M4V-Datei mit 720p umwandeln.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Warning: the file '%@' doesn't seem to be a valid MKV and can't be converted by %@. If you are sure the file is valid please contact us regarding this issue.</source>
        <translation>Warnung: Die Datei „%@“ ist anscheinend keine gültige MKV-Datei und kann von %@ nicht umgewandelt werden. Ist die Datei sicher gültig, bitten wir um eine Nachricht.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' does not exist. Please check its name and folder, then add it again.</source>
        <translation>Die Datei „%@“ gibt es nicht. Bitte Namen und Ordner prüfen und sie noch einmal hinzufügen.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>'%@' is a folder. Please add the movie files in it instead.</source>
        <translation>„%@“ ist ein Ordner. Bitte stattdessen die Filme darin hinzufügen.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>'%@' is not a regular file. Please save the movie as a file on disk and add that.</source>
        <translation>„%@“ ist keine gewöhnliche Datei. Bitte den Film als Datei speichern und diese hinzufügen.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' cannot be read. Please change its permissions, then add it again.</source>
        <translation>Die Datei „%@“ kann nicht gelesen werden. Bitte ihre Zugriffsrechte ändern und sie noch einmal hinzufügen.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' can't be read because the tool '%@' is missing or cannot be run. Please install ffmpeg, or install %@ again.</source>
        <translation>Die Datei „%@“ kann nicht gelesen werden, weil das Werkzeug „%@“ fehlt oder nicht ausgeführt werden kann. Bitte ffmpeg installieren oder %@ neu installieren.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>A basic system capability failed (posix_spawn). Please reboot your system and try again.</source>
        <translation>Eine grundlegende Fähigkeit des Systems hat versagt (posix_spawn). Bitte das System neu starten und es noch einmal versuchen.</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <location filename="../../../app/probe/ReportParser.cpp"/>
        <source>Duration: %@  Bitrate: %@  Resolution: %@  Audiotracks: %i (%i)</source>
        <translation>Dauer: %@  Bitrate: %@  Auflösung: %@  Tonspuren: %i (%i)</translation>
    </message>
    <message>
        <location filename="../../../app/window/Documents.cpp"/>
        <source>documents/en</source>
        <translation>documents/de</translation>
    </message>
    <message>
        <location filename="../../../app/window/FilePanel.cpp"/>
        <source>Looking into the file…</source>
        <translation>Datei wird untersucht …</translation>
    </message>
    <message>
        <location filename="../../../app/window/FilePanel.cpp"/>
        <source>Subtitles: %@</source>
        <translation>Untertitel: %@</translation>
    </message>
    <message>
        <location filename="../../../app/window/FilePanel.cpp"/>
        <source>No sound</source>
        <translation>Kein Ton</translation>
    </message>
    <message>
        <location filename="../../../app/window/JobActions.cpp"/>
        <source>Con&amp;vert Now</source>
        <translation>Jetzt &amp;umwandeln</translation>
    </message>
    <message>
        <location filename="../../../app/window/JobActions.cpp"/>
        <source>&amp;Explain Failure</source>
        <translation>Fehler &amp;erklären</translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Pause this conversion</source>
        <translation>Diese Umwandlung anhalten</translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Continue this conversion</source>
        <translation>Diese Umwandlung fortsetzen</translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Convert this file now</source>
        <translation>Diese Datei jetzt umwandeln</translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Explain why it failed</source>
        <translation>Erklären, warum es fehlgeschlagen ist</translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Show the file in its folder</source>
        <translation>Datei in ihrem Ordner anzeigen</translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Take this conversion off the list</source>
        <translation>Diese Umwandlung aus der Liste nehmen</translation>
    </message>
    <message>
        <location filename="../../../app/window/MainWindow.cpp"/>
        <source>Pours movies into MP4 files that play everywhere. The work is done by ffmpeg, which has licences of its own.</source>
        <translation>Gießt Filme in MP4-Dateien um, die überall laufen. Die Arbeit macht ffmpeg, das eigene Lizenzen hat.</translation>
    </message>
    <message>
        <location filename="../../../app/window/MainWindowDress.cpp"/>
        <source>Resume Queue</source>
        <translation>Warteschlange fortsetzen</translation>
    </message>
    <message>
        <location filename="../../../app/window/MissingForm.cpp"/>
        <source>%@ is missing from the program's folder; install Decant again.</source>
        <translation>%@ fehlt im Ordner des Programms; bitte Decant neu installieren.</translation>
    </message>
    <message>
        <location filename="../../../app/window/PreferencesWindow.cpp"/>
        <source>No folders yet. Those that you add can be chosen as the place for new files.</source>
        <translation>Noch keine Ordner. Hinzugefügte stehen als Ziel neuer Dateien zur Wahl.</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Save Converted Movie</source>
        <translation>Umgewandelten Film speichern</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>MP4 movies</source>
        <translation>MP4-Filme</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>The file '%@' is there already. Replace it?</source>
        <translation>Die Datei „%@“ gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Choose Another</source>
        <translation>Anderen Namen wählen</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Choose a Folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Add Movies</source>
        <translation>Filme hinzufügen</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Movies and subtitle files</source>
        <translation>Filme und Untertiteldateien</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowProgram.cpp"/>
        <source>The settings cannot be written to the file '%@'; what you change is forgotten when the program ends.</source>
        <translation>Die Einstellungen können nicht in die Datei „%@“ geschrieben werden; Änderungen sind vergessen, wenn das Programm endet.</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowProgram.cpp"/>
        <source>Picking up Speed!</source>
        <translation>Mehr Tempo!</translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowProgram.cpp"/>
        <source>Note that conversion will be much faster, more reliable and higher quality if you select 'High Speed &amp; Quality' in the 'Audio Conversion Settings' in the Preferences, though the resulting files may not play with sound on some devices (e.g. iOS). Just try it out!</source>
        <translation>Die Umwandlung wird viel schneller, zuverlässiger und hochwertiger, wenn in den Einstellungen unter „Audio-Umwandlung“ die Art „Schnell und hochwertig“ gewählt ist; allerdings laufen die erzeugten Dateien auf manchen Geräten (z. B. unter iOS) vielleicht ohne Ton. Einfach ausprobieren!</translation>
    </message>
</context>
</TS>
