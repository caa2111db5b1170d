<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>decant</name>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Decant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>File name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Looking into the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Skip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Leave this file out and go on with the next one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>What the file holds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Subtitle file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>So&amp;und:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Sound track</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>The sound track that the MP4 file will have</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Place:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Place of the converted file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Where the MP4 file will be written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Start Conversion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Convert this file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Conversion style:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Plays Everywhere</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Stereo AAC sound for phones, tablets, consoles and televisions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>High Speed &amp;&amp; Quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Copies sound where it can, keeps surround sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>High Speed &amp; Quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>You say what becomes of each kind of sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Show or hide the options of this style</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Sound becomes stereo AAC, which every device plays. Tracks that are AAC already are copied.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Keep a surround track &amp;beside the stereo track</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Players that can choose tracks offer both. Only a 5.1 track in AC3 or DTS of the same language is taken.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Convert a DTS surround track to &amp;AC3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Few players take DTS from an MP4 file. Off copies the track as it is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Sound that is AAC or AC3 already is copied, which takes seconds and loses nothing. Other sound becomes AC3. Some devices play AC3 only through an amplifier.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Make AC3 &amp;surround sound stereo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Make &amp;DTS surround sound stereo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>What becomes of each kind of sound. AAC is always copied.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, stereo:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, stereo becomes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AAC, stereo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, stereo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, surround</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, surround:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>AC3, surround becomes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>DTS, stereo:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>DTS, stereo becomes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>DTS, surround:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>DTS, surround becomes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>MP3:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>MP3 becomes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Vorbis:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Vorbis becomes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Anything else:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Anything else becomes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Movies go in, MP4 files come out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Drop movies here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>or press Add. Subtitle files dropped with a movie of the same name go with it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Conversions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Toolbar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Add Movies…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Choose movies and subtitle files to convert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Add the files whose names were copied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/window/MainWindow.cpp"/>
        <source>Pause Queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Remove Finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Clean</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Take finished conversions off the list; their files stay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/window/JobActions.cpp"/>
        <source>Pause Con&amp;version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/window/JobActions.cpp"/>
        <source>&amp;Show File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Show S&amp;ource</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Remo&amp;ve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Select A&amp;ll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Preferences…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Settings of conversions and of the program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Main Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Documentation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>How to get the best from Decant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Which Style to Choose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>What Plays W&amp;here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>More About &amp;Decant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Write to Support…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Test New Versions…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Decant on the &amp;Web</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Store &amp;Page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>Open in the Store &amp;Program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;Rate Decant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/MainWindow.ui"/>
        <source>&amp;About Decant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>File name e&amp;xtension:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>File name extension</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Both hold the same; some Apple programs show subtitles only in .m4v files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>.mp4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>.m4v</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;New files go:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Where new files go</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>To the top of the queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>To the bottom of the queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Convert files without asking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Each file is queued with the sound and place that Decant would suggest.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Make &amp;streamable files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Web players can begin before the whole file has arrived. Takes a little longer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Take finished conversions &amp;off the list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Quit when everything is converted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Dispose of the source after a successful conversion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>How the source is disposed of</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Move it to the Trash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Delete it at once; it cannot be brought back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Only when the new file is on the disk and as long as its source; else the source stays.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;AAC:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Bit rate of AAC sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>96 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>128 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>160 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>192 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>AC3, &amp;stereo:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Bit rate of stereo AC3 sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>224 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>256 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>AC3, s&amp;urround:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Bit rate of surround AC3 sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>384 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>448 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>512 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>576 kb/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Volume:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Bit rates and volume have an effect on sound that is converted; sound that is copied stays as it is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Convert &amp;HE-AAC sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Older players make only half of such a track audible. Off copies it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Make AC3 surround sound stereo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Make DTS surround sound stereo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>These two belong to the style High Speed &amp; Quality.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Subtitles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Keep the subtitles &amp;inside the movie</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Text subtitles become subtitles of the MP4 file. Subtitles made of pictures cannot be kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Mend the &amp;duration of subtitles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Ends a line where the next one begins, for movies whose lines overlap.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Letters in subtitle &amp;files:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Letters in subtitle files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>None (as the file says)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Unicode (UTF-8)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Unicode (UTF-16)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Thai (CP874)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Chinese, simplified (CP936)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Central European (CP1250)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Cyrillic (CP1251)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Western (CP1252)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Greek (CP1253)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Turkish (CP1254)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Hebrew (CP1255)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Arabic (CP1256)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Baltic (CP1257)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Vietnamese (CP1258)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Western (LATIN1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Central European (LATIN2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>South European (LATIN3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>North European (LATIN4)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Turkish (LATIN5)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Nordic (LATIN6)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Baltic (LATIN7)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Celtic (LATIN8)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Western (ISO-8859-1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Central European (ISO-8859-2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>South European (ISO-8859-3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>North European (ISO-8859-4)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Cyrillic (ISO-8859-5)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Arabic (ISO-8859-6)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Greek (ISO-8859-7)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Hebrew (ISO-8859-8)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Turkish (ISO-8859-9)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Nordic (ISO-8859-10)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Thai (ISO-8859-11)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Devanagari (ISO-8859-12)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Baltic (ISO-8859-13)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Celtic (ISO-8859-14)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Western with euro sign (ISO-8859-15)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>South-Eastern European (ISO-8859-16)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Choose another one when accents or foreign letters come out wrong.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Places</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Folders for converted files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Add Folder…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Remember a folder for converted files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Add Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Forget the selected folder; nothing in it changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Usual place:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Usual place of converted files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>&amp;Language of the sound:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Language of the sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>That of the desktop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>English</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>German</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>French</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Spanish</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Chinese</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Japanese</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>Russian</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/resources/ui/PreferencesWindow.ui"/>
        <source>The track in this language is suggested for each movie, AAC first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/AlertDialog.cpp"/>
        <source>Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Desktop/AlertDialog.cpp"/>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <location filename="../../../app/controller/SourceDisposal.cpp"/>
        <location filename="../../../app/conversion/ConversionJob.cpp"/>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>%@  …
(Remaining message omitted)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>Fatal Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <location filename="../../../app/controller/Intake.cpp"/>
        <source>Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>%@

 You can contact our support with detailed information so that we can fix this problem.

Information: %@</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>Send to support</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../Ostrak/Ostrak/Feedback.cpp"/>
        <source>Continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>-o needs the name of a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>--subtitle needs the name of a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>--audio takes the number of a track, as probe prints it after '#', not '%@'.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>--set takes KEY=VALUE, not '%@'.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>There is no option '%@' here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>The option '%@' takes no value.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>The option '%@' is given twice.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>The option '%@' needs a value.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>No FILE is given.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>reset takes --all or keys, not both.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>reset needs a KEY, or --all.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>%@ needs a KEY.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>%@ needs a KEY and a VALUE.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>There is one word too many: '%@'.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>settings needs one of list, get, set and reset.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>settings takes list, get, set or reset, not '%@'.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ArgumentParser.cpp"/>
        <source>'%@' is not valid UTF-8.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>The output could not be written: %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>This build has no window; convert movies with: decant convert FILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>There is no display to open a window on; convert movies with: decant convert FILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>The settings file '%@' could not be read and is not used; all settings are at their defaults.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/CommandLine.cpp"/>
        <source>The settings file could not be read and is kept as '%@'; all settings are back at their defaults.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertCommand.cpp"/>
        <source>'%@' is no folder and can't be made one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertCommand.cpp"/>
        <source>'%@' is no folder and can't be made one: %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>'%@' is a movie and no subtitle file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>The subtitles in '%@' are pictures; only text can be taken.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>'%@' is not taken; movies end in %@, subtitle files in %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>There is no movie among the FILEs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>'%@' is a folder; with -r the movies in it are converted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertInput.cpp"/>
        <source>--subtitle goes with one movie, not with %i.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ConvertRun.cpp"/>
        <location filename="../../../app/cli/DryRun.cpp"/>
        <source>There is no folder to write to.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/FolderWalk.cpp"/>
        <source>The folder '%@' can't be read: %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>An empty name names no file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>The name '%@' is not valid UTF-8; please rename it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>The folder that '%@' is in has been removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>There is no file '%@'.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>The file '%@' can't be read: %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>'%@' is a folder, not a movie.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/GivenFile.cpp"/>
        <source>'%@' is not a regular file; only files and links to files are taken.</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>usage: decant probe [--json] FILE…
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>usage: decant convert [-o DIR] [-r] [--set KEY=VALUE]… [--audio N] [--subtitle FILE] [--dry-run] [--json] FILE…
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>usage: decant settings list [--json] | get KEY | set KEY VALUE | reset KEY… | reset --all
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/HelpTexts.cpp"/>
        <source>usage: decant [FILE…] | probe … | convert … | settings … | --help | --version
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/IntakeFeeder.cpp"/>
        <source>'%@' has no audio track.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/IntakeFeeder.cpp"/>
        <source>'%@' has no audio track #%i; it has %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/IntakeFeeder.cpp"/>
        <source>The file can't be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeCommand.cpp"/>
        <source>What the tool says about '%@' can't be understood: %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>%llu bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>duration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>audio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>subtitles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>summary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>refused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProbeReport.cpp"/>
        <source>warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProgressLine.cpp"/>
        <source>converting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/ProgressLine.cpp"/>
        <source>%@ left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/SettingsCommand.cpp"/>
        <source>There is no setting '%@'; settings list names them all.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/SettingsCommand.cpp"/>
        <source>'%@' is a list of folders, which is not changed here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/SettingsCommand.cpp"/>
        <source>The settings file '%@' can't be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>started</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>%@  done in %@: %@</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>finished in %@: %@</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>%@  failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/cli/TextConvertReporter.cpp"/>
        <source>%i finished, %i failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>You don't seem to have write access to the selected destinatation or it is a read-only filesystem. Please choose another destination.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>You've tried to overwrite the source file with the target file. Thats the worst idea ever.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>D'oh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source> (Paused)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>Add to Queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>Conversion is in progresss. Are you sure you want to quit?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/AppDelegate.cpp"/>
        <source>You have now used [APPNAME] more than 20 times, successfully converting %li MKVs to MP4s.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationMenu.cpp"/>
        <source>Ask Each Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationMenu.cpp"/>
        <source>Next to Source File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationMenu.cpp"/>
        <source>Add Folder…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/DestinationRoad.cpp"/>
        <source>You've chosen the 'Next to' default destination for converted MP4 files. Since Apple's SandBox limits access to your files you have to open the folder that contains all MKV files that you want to convert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/Intake.cpp"/>
        <source>The file %@ could not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/Intake.cpp"/>
        <source>The preferred audio language could not be used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/SourceDisposal.cpp"/>
        <source>The converted file %@ could not be deleted: %@</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/controller/SourceDisposal.cpp"/>
        <source>The converted file %@ could not be moved to the Trash: %@</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/ConversionJob.cpp"/>
        <source>Converting MKV file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/ConversionTool.cpp"/>
        <source>The file '%@' can't be converted because the tool '%@' is missing or cannot be run. Please install ffmpeg, or install %@ again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/FreeSpace.cpp"/>
        <source>There is not enough free space on your target disk for conversion.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/FreeSpace.cpp"/>
        <source>Your target disk doesn't support large files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>%@ Conversion Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>%@ has failed to convert the file %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>%@ Conversion Finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>%@ has finished converting the file %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/JobNotification.cpp"/>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/RunPreparation.cpp"/>
        <source>It seems you've removed the file %@ or unmounted it's volume so conversion can't proceed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/RunPreparation.cpp"/>
        <source>The destination %@ can't be written because that would destroy another file that is still needed. Please choose another destination.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>%@   Audio: %@</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>%@ (Discarded: %@)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>Status: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>%@   ETA: %@</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source> [Conversion took: %@]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/conversion/StatusText.cpp"/>
        <source>%@   Click the arrow at the right to get more information.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Don't warn again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' is an alias. We can't open the target of the alias because of limitations in Apple's 'sandbox'. Please complaint to Apple if you want Aliases to work in sandboxed apps.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Warning: the file '%@' contains an invalid video codec (%@) and can't be converted by %@.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' doesn't contain a H264/MPEG4 video track (videocodec: %@) so the result may not be playable.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' contains a 10-bit video track so the result will not be playable on the iPhone or iPad. It should still play with other players (VLC/Mplayer).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' will probably not play back fine on the iPhone/iPad as it has a too large resolution. You can try converting the produced MP4 file using 'QuickTime Player' to a 1080p M4V file to view this video on iOS.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' will probably not play back fine on the 'Playstation 3' or other devices as it contains more 'reference frames' than the PS3 supports. You can try converting the produced MP4 file using 'QuickTime Player' to a 720p M4V file to view this video on the PS3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Warning: the file '%@' doesn't seem to be a valid MKV and can't be converted by %@. If you are sure the file is valid please contact us regarding this issue.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' does not exist. Please check its name and folder, then add it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>'%@' is a folder. Please add the movie files in it instead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>'%@' is not a regular file. Please save the movie as a file on disk and add that.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' cannot be read. Please change its permissions, then add it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>The file '%@' can't be read because the tool '%@' is missing or cannot be run. Please install ffmpeg, or install %@ again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>A basic system capability failed (posix_spawn). Please reboot your system and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/probe/ProbeAlerts.cpp"/>
        <source>Exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/FilePanel.cpp"/>
        <source>Looking into the file…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/FilePanel.cpp"/>
        <source>Subtitles: %@</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/FilePanel.cpp"/>
        <source>No sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/JobActions.cpp"/>
        <source>Con&amp;vert Now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/JobActions.cpp"/>
        <source>&amp;Explain Failure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Pause this conversion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Continue this conversion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Convert this file now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Explain why it failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Show the file in its folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/JobListView.cpp"/>
        <source>Take this conversion off the list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/MainWindow.cpp"/>
        <source>Resume Queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Save Converted Movie</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>MP4 movies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Choose a Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Add Movies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowPanels.cpp"/>
        <source>Movies and subtitle files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowProgram.cpp"/>
        <source>Picking up Speed!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../../app/window/WindowProgram.cpp"/>
        <source>Note that conversion will be much faster, more reliable and higher quality if you select 'High Speed &amp; Quality' in the 'Audio Conversion Settings' in the Preferences, though the resulting files may not play with sound on some devices (e.g. iOS). Just try it out!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
