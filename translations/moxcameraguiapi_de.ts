<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>ConnectByIpDialog</name>
    <message>
        <source>Connect by IP Address</source>
        <translation>Über IP-Adresse verbinden</translation>
    </message>
    <message>
        <source>IP &amp;Address</source>
        <translation>&amp;IP-Adresse</translation>
    </message>
</context>
<context>
    <name>DeviceTreeModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>GenErrorsDlg</name>
    <message>
        <source>Gen&lt;i&gt;Cam errors</source>
        <translation>Gen&lt;i&gt;Cam-Fehler</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
</context>
<context>
    <name>GenParamTreeModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>FEHLER</translation>
    </message>
    <message>
        <source>&lt;Value not available&gt;</source>
        <translation>&lt;Wert nicht verfügbar&gt;</translation>
    </message>
    <message>
        <source>&lt;Value not readable&gt;</source>
        <translation>&lt;Wert nicht lesbar&gt;</translation>
    </message>
    <message>
        <source>Integer</source>
        <translation>Ganzzahl</translation>
    </message>
    <message>
        <source>Boolean</source>
        <translation>Wahrheitswert</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Gleitkommazahl</translation>
    </message>
    <message>
        <source>String</source>
        <translation>Zeichenkette</translation>
    </message>
    <message>
        <source>Enumeration</source>
        <translation>Aufzählung</translation>
    </message>
    <message>
        <source>&lt;i&gt;Selectors:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;Selektoren:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Valid values&lt;/i&gt;: %1</source>
        <translation>&lt;i&gt;Gültige Werte&lt;/i&gt;: %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Limits&lt;/i&gt;: Min: %1, Max: %2</source>
        <translation>&lt;i&gt;Grenzen&lt;/i&gt;: Min: %1, Max: %2</translation>
    </message>
    <message>
        <source>&lt;i&gt;Increment&lt;/i&gt;: %1</source>
        <translation>&lt;i&gt;Schrittweite&lt;/i&gt;: %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Enumeration entries&lt;/i&gt;:</source>
        <translation>&lt;i&gt;Einträge der Aufzählung&lt;/i&gt;:</translation>
    </message>
    <message>
        <source>&lt;i&gt;Name:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;Name:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Type:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;Typ:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Description:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;Beschreibung:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Streamable:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;Speicherbar:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>True</source>
        <translation>Wahr</translation>
    </message>
    <message>
        <source>False</source>
        <translation>Falsch</translation>
    </message>
    <message>
        <source>&lt;i&gt;Cachable:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;Zwischenspeicherbar:&lt;/i&gt; %1</translation>
    </message>
</context>
<context>
    <name>GenParamTreeView</name>
    <message>
        <source>GenParamTreeView</source>
        <translation>Parameterbaum</translation>
    </message>
    <message>
        <source>Collapse All</source>
        <translation>Alle einklappen</translation>
    </message>
    <message>
        <source>Expand All</source>
        <translation>Alle ausklappen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Filter by feature name.
Using of wildcard is possible.</source>
        <translation>Nach dem Namen des Parameters filtern.
Platzhalter sind möglich.</translation>
    </message>
    <message>
        <source>Visibility:</source>
        <translation>Sichtbarkeit:</translation>
    </message>
    <message>
        <source>Level of feature visibility</source>
        <translation>Stufe der Sichtbarkeit von Parametern</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>Einfach</translation>
    </message>
    <message>
        <source>Expert</source>
        <translation>Experte</translation>
    </message>
    <message>
        <source>Guru</source>
        <translation>Guru</translation>
    </message>
    <message>
        <source>Show Error Dialog</source>
        <translation>Fehler anzeigen</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Clear filter</source>
        <translation>Filter löschen</translation>
    </message>
    <message>
        <source>Filter options</source>
        <translation>Filteroptionen</translation>
    </message>
    <message>
        <source>Alt+Down opens the filter options</source>
        <translation>Alt+Abwärts öffnet die Filteroptionen</translation>
    </message>
    <message>
        <source>Case Sensitive</source>
        <translation>Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Whole Words Only</source>
        <translation>Nur ganze Wörter</translation>
    </message>
    <message>
        <source>No Errors</source>
        <translation>Keine Fehler</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigAboutDialog</name>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>Device Information</source>
        <translation>Geräteinformationen</translation>
    </message>
    <message>
        <source>Device Vendor Name:</source>
        <translation>Gerätehersteller:</translation>
    </message>
    <message>
        <source>Device Model Name:</source>
        <translation>Gerätemodell:</translation>
    </message>
    <message>
        <source>Device Family Name:</source>
        <translation>Gerätefamilie:</translation>
    </message>
    <message>
        <source>Device Version:</source>
        <translation>Geräteversion:</translation>
    </message>
    <message>
        <source>Device Firmware Version:</source>
        <translation>Firmware-Version des Geräts:</translation>
    </message>
    <message>
        <source>Device Manufacturer Info:</source>
        <translation>Herstellerangaben:</translation>
    </message>
    <message>
        <source>Device Serial Number:</source>
        <translation>Seriennummer des Geräts:</translation>
    </message>
    <message>
        <source>Device User Defined Name:</source>
        <translation>Benutzerdefinierter Gerätename:</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>RgsID:</source>
        <translation>RgsID:</translation>
    </message>
    <message>
        <source>FpgaID:</source>
        <translation>FpgaID:</translation>
    </message>
    <message>
        <source>EpcsID:</source>
        <translation>EpcsID:</translation>
    </message>
    <message>
        <source>Firmware Image:</source>
        <translation>Firmware-Image:</translation>
    </message>
    <message>
        <source>CustomerID:</source>
        <translation>Kunden-ID:</translation>
    </message>
    <message>
        <source>FamilyID:</source>
        <translation>Familien-ID:</translation>
    </message>
    <message>
        <source>Xml Version:</source>
        <translation>XML-Version:</translation>
    </message>
    <message>
        <source>Sensor Type:</source>
        <translation>Sensortyp:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigColorDialog</name>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>White Balance</source>
        <translation>Weißabgleich</translation>
    </message>
    <message>
        <source>Tracking Speed</source>
        <translation>Nachführgeschwindigkeit</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Red coef.:</source>
        <translation>Rotkoeff.:</translation>
    </message>
    <message>
        <source>Green coef.:</source>
        <translation>Grünkoeff.:</translation>
    </message>
    <message>
        <source>Blue coef.:</source>
        <translation>Blaukoeff.:</translation>
    </message>
    <message>
        <source>4095</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>4095</translation>
    </message>
    <message>
        <source>Manual WB Coef.</source>
        <translation>Manuelle Weißabgleichkoeff.</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Red unity</source>
        <translation>Rot auf eins</translation>
    </message>
    <message>
        <source>Unity</source>
        <translation>Eins</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Green unity</source>
        <translation>Grün auf eins</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Blue unity</source>
        <translation>Blau auf eins</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigFrameABDialog</name>
    <message>
        <source>Frame A/B</source>
        <translation>Bild A/B</translation>
    </message>
    <message>
        <source>Output mode:</source>
        <translation>Ausgabemodus:</translation>
    </message>
    <message>
        <source>Dual Video:</source>
        <translation>Dual-Video:</translation>
    </message>
    <message>
        <source>Number of A frames</source>
        <translation>Anzahl der A-Bilder</translation>
    </message>
    <message>
        <source>Frame-A +</source>
        <translation>Bild A +</translation>
    </message>
    <message>
        <source>Number of B frames</source>
        <translation>Anzahl der B-Bilder</translation>
    </message>
    <message>
        <source>Frame-B</source>
        <translation>Bild B</translation>
    </message>
    <message>
        <source>Shutter mode:</source>
        <translation>Verschlussart:</translation>
    </message>
    <message>
        <source>Rolling</source>
        <translation>Rollend</translation>
    </message>
    <message>
        <source>Global</source>
        <translation>Global</translation>
    </message>
    <message>
        <source>ADC Selector:</source>
        <translation>ADC-Auswahl:</translation>
    </message>
    <message>
        <source>10 bits</source>
        <translation>10 Bit</translation>
    </message>
    <message>
        <source>12 bits</source>
        <translation>12 Bit</translation>
    </message>
    <message>
        <source>Frame-A</source>
        <translation>Bild A</translation>
    </message>
    <message>
        <source>Exposure control</source>
        <translation>Belichtungssteuerung</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>Internal</source>
        <translation>Intern</translation>
    </message>
    <message>
        <source>Fixed frame period</source>
        <translation>Feste Bildperiode</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Frame line time</source>
        <translation>Zeilenzeit des Bildes</translation>
    </message>
    <message>
        <source>Video amplifier</source>
        <translation>Videoverstärker</translation>
    </message>
    <message>
        <source>Analog Gain:</source>
        <translation>Analoge Verstärkung:</translation>
    </message>
    <message>
        <source>R</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>R</translation>
    </message>
    <message>
        <source>Frame size</source>
        <translation>Bildgröße</translation>
    </message>
    <message>
        <source>Current size:</source>
        <translation>Aktuelle Größe:</translation>
    </message>
    <message>
        <source>AOI</source>
        <translation>AOI</translation>
    </message>
    <message>
        <source>Full Frame</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>QFHD</source>
        <translation>QFHD</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <source>Subsampling</source>
        <translation>Unterabtastung</translation>
    </message>
    <message>
        <source>Averaging</source>
        <translation>Mittelung</translation>
    </message>
    <message>
        <source>Averaging:</source>
        <translation>Mittelung:</translation>
    </message>
    <message>
        <source>Subsampling:</source>
        <translation>Unterabtastung:</translation>
    </message>
    <message>
        <source>P:</source>
        <translation>P:</translation>
    </message>
    <message>
        <source>Subsampling P</source>
        <translation>Unterabtastung P</translation>
    </message>
    <message>
        <source>x M:</source>
        <translation>x M:</translation>
    </message>
    <message>
        <source>Subsampling M</source>
        <translation>Unterabtastung M</translation>
    </message>
    <message>
        <source>WDR</source>
        <translation>WDR</translation>
    </message>
    <message>
        <source>P1:</source>
        <translation>P1:</translation>
    </message>
    <message>
        <source>%</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>%</translation>
    </message>
    <message>
        <source>P2:</source>
        <translation>P2:</translation>
    </message>
    <message>
        <source>P3:</source>
        <translation>P3:</translation>
    </message>
    <message>
        <source>Dual Video
Line Time [pclk]:</source>
        <translation>Dual-Video-
Zeilenzeit [pclk]:</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Clocks</source>
        <translation>Takte</translation>
    </message>
    <message>
        <source>Line Time [pclk]:</source>
        <translation>Zeilenzeit [pclk]:</translation>
    </message>
    <message>
        <source>OffsetX:</source>
        <translation>Versatz X:</translation>
    </message>
    <message>
        <source>OffsetY:</source>
        <translation>Versatz Y:</translation>
    </message>
    <message>
        <source>Width: </source>
        <translation>Breite: </translation>
    </message>
    <message>
        <source>Height:</source>
        <translation>Höhe:</translation>
    </message>
    <message>
        <source>Digital Gain:</source>
        <translation>Digitale Verstärkung:</translation>
    </message>
    <message>
        <source>Black Level:</source>
        <translation>Schwarzwert:</translation>
    </message>
    <message>
        <source>E1:</source>
        <translation>E1:</translation>
    </message>
    <message>
        <source>E2:</source>
        <translation>E2:</translation>
    </message>
    <message>
        <source>E3:</source>
        <translation>E3:</translation>
    </message>
    <message>
        <source>Exposure Time </source>
        <translation>Belichtungszeit </translation>
    </message>
</context>
<context>
    <name>MoxCamConfigMainWindow</name>
    <message>
        <source>CamConfig</source>
        <translation>Kamerakonfiguration</translation>
    </message>
    <message>
        <source>Camera Information</source>
        <translation>Kamerainformationen</translation>
    </message>
    <message>
        <source>Frame A</source>
        <translation>Bild A</translation>
    </message>
    <message>
        <source>Frame B</source>
        <translation>Bild B</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Size of frame A</source>
        <translation>Größe von Bild A</translation>
    </message>
    <message>
        <source>Size of frame B</source>
        <translation>Größe von Bild B</translation>
    </message>
    <message>
        <source>PxL</source>
        <translation>PxZ</translation>
    </message>
    <message>
        <source>FPS</source>
        <translation>Bildrate</translation>
    </message>
    <message>
        <source>Frame rate of frame A</source>
        <translation>Bildrate von Bild A</translation>
    </message>
    <message>
        <source>Frame rate of frame B</source>
        <translation>Bildrate von Bild B</translation>
    </message>
    <message>
        <source>fps</source>
        <translation>Bilder/s</translation>
    </message>
    <message>
        <source>FTM</source>
        <translation>Bildzeit</translation>
    </message>
    <message>
        <source>Frame time of frame A</source>
        <translation>Bildzeit von Bild A</translation>
    </message>
    <message>
        <source>Frame time of frame B</source>
        <translation>Bildzeit von Bild B</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>EXP</source>
        <translation>Belichtung</translation>
    </message>
    <message>
        <source>Exposure time of frame A</source>
        <translation>Belichtungszeit von Bild A</translation>
    </message>
    <message>
        <source>Exposure time of frame B</source>
        <translation>Belichtungszeit von Bild B</translation>
    </message>
    <message>
        <source>TMP</source>
        <translation>Temp.</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>0C</source>
        <translation>0C</translation>
    </message>
    <message>
        <source>Frame A/B</source>
        <translation>Bild A/B</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>Pulse</source>
        <translation>Impuls</translation>
    </message>
    <message>
        <source>Strobe</source>
        <translation>Blitz</translation>
    </message>
    <message>
        <source>Data Out</source>
        <translation>Datenausgabe</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigOutputDialog</name>
    <message>
        <source>Data Output</source>
        <translation>Datenausgabe</translation>
    </message>
    <message>
        <source>Camera Link Output</source>
        <translation>Camera-Link-Ausgang</translation>
    </message>
    <message>
        <source>Taps:</source>
        <translation>Taps:</translation>
    </message>
    <message>
        <source>Depth:</source>
        <translation>Bittiefe:</translation>
    </message>
    <message>
        <source>Pixel Type</source>
        <translation>Pixeltyp</translation>
    </message>
    <message>
        <source>Pixel Format:</source>
        <translation>Pixelformat:</translation>
    </message>
    <message>
        <source>LUT Settings</source>
        <translation>LUT-Einstellungen</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Lookup table</source>
        <translation>Lookup-Tabelle</translation>
    </message>
    <message>
        <source>Corrections</source>
        <translation>Korrekturen</translation>
    </message>
    <message>
        <source>DPC:</source>
        <translation>DPC:</translation>
    </message>
    <message>
        <source>DPC threshold</source>
        <translation>DPC-Schwellwert</translation>
    </message>
    <message>
        <source>HPC:</source>
        <translation>HPC:</translation>
    </message>
    <message>
        <source>HPC threshold</source>
        <translation>HPC-Schwellwert</translation>
    </message>
    <message>
        <source>Image Flip</source>
        <translation>Bildspiegelung</translation>
    </message>
    <message>
        <source>H.Mirror</source>
        <translation>H. spiegeln</translation>
    </message>
    <message>
        <source>V.Mirror</source>
        <translation>V. spiegeln</translation>
    </message>
    <message>
        <source>Test Mode</source>
        <translation>Testmodus</translation>
    </message>
    <message>
        <source>Test Pattern:</source>
        <translation>Testbild:</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigPulseDialog</name>
    <message>
        <source>Pulse Control</source>
        <translation>Impulssteuerung</translation>
    </message>
    <message>
        <source>Internal Pulse Generator</source>
        <translation>Interner Impulsgenerator</translation>
    </message>
    <message>
        <source>Granularity:</source>
        <translation>Granularität:</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Periode</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Verzögerung</translation>
    </message>
    <message>
        <source>Freq. [Hz]:</source>
        <translation>Freq. [Hz]:</translation>
    </message>
    <message>
        <source>Process</source>
        <translation>Ablauf</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S, Ctrl+Shift+S</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>Ctrl+Shift+S, Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>Number of Pulses</source>
        <translation>Anzahl der Impulse</translation>
    </message>
    <message>
        <source>Continious</source>
        <translation>Kontinuierlich</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigStrobeDialog</name>
    <message>
        <source>Strobe Control</source>
        <translation>Blitzsteuerung</translation>
    </message>
    <message>
        <source>Strobe 1</source>
        <translation>Blitz 1</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modus:</translation>
    </message>
    <message>
        <source>Reference:</source>
        <translation>Referenz:</translation>
    </message>
    <message>
        <source>Strobe 2</source>
        <translation>Blitz 2</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Out1:</source>
        <translation>Ausg. 1:</translation>
    </message>
    <message>
        <source>Out1 polarity</source>
        <translation>Polarität von Ausgang 1</translation>
    </message>
    <message>
        <source>Out1 selector</source>
        <translation>Quelle von Ausgang 1</translation>
    </message>
    <message>
        <source>Out2:</source>
        <translation>Ausg. 2:</translation>
    </message>
    <message>
        <source>Out2 polarity</source>
        <translation>Polarität von Ausgang 2</translation>
    </message>
    <message>
        <source>Out2 selector</source>
        <translation>Quelle von Ausgang 2</translation>
    </message>
    <message>
        <source>Delay [%1s]:</source>
        <translation>Verzögerung [%1s]:</translation>
    </message>
    <message>
        <source>Width [%1s]:</source>
        <translation>Breite [%1s]:</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigTriggerDialog</name>
    <message>
        <source>Trigger Control</source>
        <translation>Triggersteuerung</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Trigger Source:</source>
        <translation>Triggerquelle:</translation>
    </message>
    <message>
        <source>Edge:</source>
        <translation>Flanke:</translation>
    </message>
    <message>
        <source>Debounce:</source>
        <translation>Entprellung:</translation>
    </message>
    <message>
        <source>Software
Trigger</source>
        <translation>Software-
Trigger</translation>
    </message>
</context>
<context>
    <name>MoxCameraActionDialog</name>
    <message>
        <source>Action Command</source>
        <translation>Aktionsbefehl</translation>
    </message>
    <message>
        <source>Interfaces</source>
        <translation>Schnittstellen</translation>
    </message>
    <message>
        <source>Action command</source>
        <translation>Aktionsbefehl</translation>
    </message>
    <message>
        <source>Device key</source>
        <translation>Geräteschlüssel</translation>
    </message>
    <message>
        <source>Group key</source>
        <translation>Gruppenschlüssel</translation>
    </message>
    <message>
        <source>\0\xHHHHHHHH</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>\0\xHHHHHHHH</translation>
    </message>
    <message>
        <source>0x5</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>0x5</translation>
    </message>
    <message>
        <source>0x</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>0x</translation>
    </message>
    <message>
        <source>Request Acknowledgements</source>
        <translation>Bestätigungen anfordern</translation>
    </message>
    <message>
        <source>0x7</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>0x7</translation>
    </message>
    <message>
        <source>Group mask</source>
        <translation>Gruppenmaske</translation>
    </message>
    <message>
        <source>Scheduled</source>
        <translation>Zeitgesteuert</translation>
    </message>
    <message>
        <source>0xFFFFFFFF</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>0xFFFFFFFF</translation>
    </message>
    <message>
        <source>Scheduled time</source>
        <translation>Ausführungszeit</translation>
    </message>
    <message>
        <source>999999999999999999</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>999999999999999999</translation>
    </message>
    <message>
        <source>Count of waiting acknowledgements</source>
        <translation>Anzahl erwarteter Bestätigungen</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Acknowledgements</source>
        <translation>Bestätigungen</translation>
    </message>
</context>
<context>
    <name>MoxCameraSelectorDialog</name>
    <message>
        <source>Select camera</source>
        <translation>Kamera auswählen</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>&amp;Interface info</source>
        <translation>&amp;Schnittstelleninfo</translation>
    </message>
    <message>
        <source>Interface info</source>
        <translation>Schnittstelleninfo</translation>
    </message>
    <message>
        <source>&amp;Device info</source>
        <translation>&amp;Geräteinfo</translation>
    </message>
    <message>
        <source>Device info</source>
        <translation>Geräteinfo</translation>
    </message>
    <message>
        <source>Set IP Address</source>
        <translation>IP-Adresse setzen</translation>
    </message>
    <message>
        <source>Polling</source>
        <translation>Laufend abfragen</translation>
    </message>
</context>
<context>
    <name>MoxGui::MoxCamConfig</name>
    <message>
        <source>Select a device</source>
        <translation>Gerät auswählen</translation>
    </message>
</context>
<context>
    <name>MoxGui::MoxCameraSelectorDialog</name>
    <message>
        <source>&amp;Rescan</source>
        <translation>&amp;Neu suchen</translation>
    </message>
    <message>
        <source>Set IP Address</source>
        <translation>IP-Adresse setzen</translation>
    </message>
    <message>
        <source>Connect by IP Address</source>
        <translation>Über IP-Adresse verbinden</translation>
    </message>
    <message>
        <source>Can&apos;t set IP address</source>
        <translation>Die IP-Adresse kann nicht gesetzt werden</translation>
    </message>
    <message>
        <source>Can&apos;t connect by IP address</source>
        <translation>Über die IP-Adresse kann nicht verbunden werden</translation>
    </message>
</context>
<context>
    <name>QtMoxSpinBox</name>
    <message>
        <source>Opens a slider</source>
        <translation>Öffnet einen Schieberegler</translation>
    </message>
</context>
<context>
    <name>SetIpDialog</name>
    <message>
        <source>Set IP Address</source>
        <translation>IP-Adresse setzen</translation>
    </message>
    <message>
        <source>Network Adapter IP Configuration</source>
        <translation>IP-Konfiguration des Netzwerkadapters</translation>
    </message>
    <message>
        <source>MAC Address        </source>
        <translation>MAC-Adresse        </translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Subnet Mask</source>
        <translation>Subnetzmaske</translation>
    </message>
    <message>
        <source>Camera IP Configuration</source>
        <translation>IP-Konfiguration der Kamera</translation>
    </message>
    <message>
        <source>IP &amp;Address</source>
        <translation>&amp;IP-Adresse</translation>
    </message>
    <message>
        <source>&amp;Subnet Mask</source>
        <translation>&amp;Subnetzmaske</translation>
    </message>
    <message>
        <source>Default &amp;Gateway</source>
        <translation>Standard-&amp;Gateway</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>TextLabel</translation>
    </message>
</context>
</TS>
