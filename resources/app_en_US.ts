<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>main</name>
    <message>
        <source></source>
        <translation></translation>
    </message>
    <message>
        <source>AUX</source>
        <translation>AUX</translation>
    </message>
    <message>
        <source>Auto Output Resolution</source>
        <translation>Auto Output Resolution</translation>
    </message>
    <message>
        <source>Aux Lumakey</source>
        <translation>Aux Lumakey</translation>
    </message>
    <message>
        <source>BG</source>
        <translation>BG</translation>
    </message>
    <message>
        <source>Bootloader Version</source>
        <translation>Bootloader Version</translation>
    </message>
    <message>
        <source>Chromakey</source>
        <translation>Chromakey</translation>
    </message>
    <message>
        <source>Comp</source>
        <translation>Comp</translation>
    </message>
    <message>
        <source>FACTORY RESET</source>
        <translation>FACTORY RESET</translation>
    </message>
    <message>
        <source>FG</source>
        <translation>FG</translation>
    </message>
    <message>
        <source>FPGA Version</source>
        <translation>FPGA Version</translation>
    </message>
    <message>
        <source>FW Version</source>
        <translation>FW Version</translation>
    </message>
    <message>
        <source>Factory Default</source>
        <translation>Factory Default</translation>
    </message>
    <message>
        <source>Garbage Mask</source>
        <translation>Garbage Mask</translation>
    </message>
    <message>
        <source>HDMI Output Format</source>
        <translation>HDMI Output Format</translation>
    </message>
    <message>
        <source>Holdout Mask</source>
        <translation>Holdout Mask</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Input</translation>
    </message>
    <message>
        <source>Matte</source>
        <translation>Matte</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>Mirror</translation>
    </message>
    <message>
        <source>Output Resolution</source>
        <translation>Output Resolution</translation>
    </message>
    <message>
        <source>PFG</source>
        <translation>PFG</translation>
    </message>
    <message>
        <source>PGM(HDMI):</source>
        <translation>PGM(HDMI):</translation>
    </message>
    <message>
        <source>PGM(SDI):</source>
        <translation>PGM(SDI):</translation>
    </message>
    <message>
        <source>PVW (SDI/HDMI):</source>
        <translation>PVW (SDI/HDMI):</translation>
    </message>
    <message>
        <source>Post-Processor</source>
        <translation>Post-Processor</translation>
    </message>
    <message>
        <source>SETUP</source>
        <translation>SETUP</translation>
    </message>
    <message>
        <source>SETUP SAVE</source>
        <translation>SETUP SAVE</translation>
    </message>
    <message>
        <source>User</source>
        <translation>User</translation>
    </message>
    <message>
        <source>User Memory:</source>
        <translation>User Memory:</translation>
    </message>
    <message>
        <source>Address Mode</source>
        <translation>Address Mode</translation>
    </message>
    <message>
        <source>CONNECT</source>
        <translation>CONNECT</translation>
    </message>
    <message>
        <source>Comport</source>
        <translation>Comport</translation>
    </message>
    <message>
        <source>Config</source>
        <translation>Config</translation>
    </message>
    <message>
        <source>EtherNetCard</source>
        <translation>EtherNetCard</translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation>Gateway</translation>
    </message>
    <message>
        <source>Host Name</source>
        <translation>Host Name</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP Address</translation>
    </message>
    <message>
        <source>IP Select</source>
        <translation>IP Select</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>Interface</translation>
    </message>
    <message>
        <source>Mac Address</source>
        <translation>Mac Address</translation>
    </message>
    <message>
        <source>Network Mask</source>
        <translation>Network Mask</translation>
    </message>
    <message>
        <source>Primary DNS</source>
        <translation>Primary DNS</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>Reconnect</translation>
    </message>
    <message>
        <source>Secondary DNS</source>
        <translation>Secondary DNS</translation>
    </message>
    <message>
        <source>Static IP</source>
        <translation>Static IP</translation>
    </message>
    <message>
        <source>WARNING</source>
        <translation>WARNING</translation>
    </message>
    <message>
        <source> not ready.</source>
        <translation> not ready.</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Connected</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Disconnected</translation>
    </message>
    <message>
        <source>Disconnecting</source>
        <translation>Disconnecting</translation>
    </message>
    <message>
        <source>Do you want to reset factory default?</source>
        <translation>Do you want to reset factory default?</translation>
    </message>
    <message>
        <source>IP Address is not 
in the same network.</source>
        <translation>IP Address is not 
in the same network.</translation>
    </message>
    <message>
        <source>Network </source>
        <translation>Network </translation>
    </message>
    <message>
        <source>Network interface is empty.</source>
        <translation>Network interface is empty.</translation>
    </message>
    <message>
        <source>Please reboot this device: 
</source>
        <translation>Please reboot this device: 
</translation>
    </message>
    <message>
        <source>Please scan and find devices first.</source>
        <translation>Please scan and find devices first.</translation>
    </message>
    <message>
        <source>Reset Successfully</source>
        <translation>Reset Successfully</translation>
    </message>
    <message>
        <source>Save Successfully</source>
        <translation>Save Successfully</translation>
    </message>
    <message>
        <source>Saving...</source>
        <translation>Saving...</translation>
    </message>
    <message>
        <source>Scanning...</source>
        <translation>Scanning...</translation>
    </message>
    <message>
        <source>Setting completed.</source>
        <translation>Setting completed.</translation>
    </message>
    <message>
        <source>Setting up...</source>
        <translation>Setting up...</translation>
    </message>
    <message>
        <source>The system has been disconnected.
Please reconnect.
</source>
        <translation>The system has been disconnected.
Please reconnect.
</translation>
    </message>
    <message>
        <source>To edit network config, please Scan first.</source>
        <translation>To edit network config, please Scan first.</translation>
    </message>
</context>
<context>
    <name>mainControl</name>
    <message>
        <source>
is not found.</source>
        <translation>
is not found.</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Disconnected</translation>
    </message>
    <message>
        <source>Gateway Address format incorrect.</source>
        <translation>Gateway Address format incorrect.</translation>
    </message>
    <message>
        <source>IP Address format incorrect.</source>
        <translation>IP Address format incorrect.</translation>
    </message>
    <message>
        <source>Mask Address format incorrect.</source>
        <translation>Netmask Address format incorrect.</translation>
    </message>
    <message>
        <source>Netmask Address format incorrect.</source>
        <translation>Netmask Address format incorrect.</translation>
    </message>
    <message>
        <source>Previous device MAC address </source>
        <translation>Previous device MAC address </translation>
    </message>
    <message>
        <source>Previous selected netcard</source>
        <translation>Previous selected netcard</translation>
    </message>
    <message>
        <source>PrimDNS Address format incorrect.</source>
        <translation>PrimDNS Address format incorrect.</translation>
    </message>
    <message>
        <source>Primary DNS Address format incorrect.</source>
        <translation>Primary DNS Address format incorrect.</translation>
    </message>
    <message>
        <source>Saved device info is not match.
Please scan again to refresh.</source>
        <translation>Saved device info is not match.
Please scan again to refresh.</translation>
    </message>
    <message>
        <source>SecDNS Address format incorrect.</source>
        <translation>SecDNS Address format incorrect.</translation>
    </message>
    <message>
        <source>Secondary DNS Address format incorrect.</source>
        <translation>Secondary DNS Address format incorrect.</translation>
    </message>
    <message>
        <source>is not existing.</source>
        <translation>is not existing.</translation>
    </message>
</context>
<context>
    <name>qkv720</name>
    <message>
        <source>Device disconnected.</source>
        <translation>Device disconnected.</translation>
    </message>
    <message>
        <source>Ethernet not Connected!</source>
        <translation>Ethernet not Connected!</translation>
    </message>
    <message>
        <source>Get Input Source failed. 
Device may be disconnected.</source>
        <translation>Get Input Source failed. 
Device may be disconnected.</translation>
    </message>
    <message>
        <source>Get Version failed. 
Device may be disconnected.</source>
        <translation>Get Version failed. 
Device may be disconnected.</translation>
    </message>
    <message>
        <source>Get Video Out failed. 
Device may be disconnected.</source>
        <translation>Get Video Out failed. 
Device may be disconnected.</translation>
    </message>
    <message>
        <source>Get Vin Resolution failed. 
Device may be disconnected.</source>
        <translation>Get Vin Resolution failed. 
Device may be disconnected.</translation>
    </message>
</context>
<context>
    <name>HLNP</name>
    <message>
        <source>Gate address format error</source>
        <translation>Gateway address format error</translation>
    </message>
    <message>
        <source>Gateway address format error</source>
        <translation>Gateway Address format incorrect</translation>
    </message>
    <message>
        <source>IP format error</source>
        <translation>IP Address format incorrect</translation>
    </message>
    <message>
        <source>MAC address format error</source>
        <translation>MAC Address format incorrect</translation>
    </message>
    <message>
        <source>Mask address format error</source>
        <translation>Netmask address format error</translation>
    </message>
    <message>
        <source>PrimDNS address format error</source>
        <translation>Primary DNS address format error</translation>
    </message>
    <message>
        <source>Reset device network configuration?</source>
        <translation>Reset device network configuration?</translation>
    </message>
    <message>
        <source>Save device network configuration?</source>
        <translation>Save device network configuration?</translation>
    </message>
    <message>
        <source>SecDNS address format error</source>
        <translation>Secondary DNS address format error</translation>
    </message>
    <message>
        <source>Setting error, please check IP address:</source>
        <translation>Setting error, please check IP address:</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warning</translation>
    </message>
</context>
<context>
    <name>PageInput</name>
    <message>
        <source></source>
        <translation></translation>
    </message>
    <message>
        <source>AUX</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BG</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EXT.SYNC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FG</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Freeze</source>
        <translation>Freeze</translation>
    </message>
    <message>
        <source>Genlock</source>
        <translation>Genlock</translation>
    </message>
    <message>
        <source>Horizontal Offset:</source>
        <translation>Horizontal Offset:</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Locked</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Unlocked</source>
        <translation>Unlocked</translation>
    </message>
    <message>
        <source>Vertical Offset:</source>
        <translation>Vertical Offset:</translation>
    </message>
</context>
<context>
    <name>PageChromakey</name>
    <message>
        <source>B:</source>
        <translation>B:</translation>
    </message>
    <message>
        <source>Backing Color:</source>
        <translation>Backing Color:</translation>
    </message>
    <message>
        <source>Black Level:</source>
        <translation>Black Level:</translation>
    </message>
    <message>
        <source>Bright</source>
        <translation>Bright</translation>
    </message>
    <message>
        <source>Bright Balance:</source>
        <translation>Bright Balance:</translation>
    </message>
    <message>
        <source>Bright Density:</source>
        <translation>Bright Density:</translation>
    </message>
    <message>
        <source>Bright Enhancement</source>
        <translation>Bright Enhancement</translation>
    </message>
    <message>
        <source>Bright Level:</source>
        <translation>Bright Level:</translation>
    </message>
    <message>
        <source>Color Adjustment</source>
        <translation>Color Adjustment</translation>
    </message>
    <message>
        <source>Cool</source>
        <translation>Cool</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dark</translation>
    </message>
    <message>
        <source>Dark Balance:</source>
        <translation>Dark Balance:</translation>
    </message>
    <message>
        <source>Dark Density:</source>
        <translation>Dark Density:</translation>
    </message>
    <message>
        <source>Dark Enhancement</source>
        <translation>Dark Enhancement</translation>
    </message>
    <message>
        <source>Dark Level:</source>
        <translation>Dark Level:</translation>
    </message>
    <message>
        <source>Default:</source>
        <translation>Default:</translation>
    </message>
    <message>
        <source>Edge Brightness:</source>
        <translation>Edge Brightness:</translation>
    </message>
    <message>
        <source>Edge Fix (HD only)</source>
        <translation>Edge Fix (HD only)</translation>
    </message>
    <message>
        <source>Enhance</source>
        <translation>Enhance</translation>
    </message>
    <message>
        <source>G:</source>
        <translation>G:</translation>
    </message>
    <message>
        <source>H:</source>
        <translation>H:</translation>
    </message>
    <message>
        <source>L:</source>
        <translation>L:</translation>
    </message>
    <message>
        <source>Matte Generation</source>
        <translation>Matte Generation</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Middle</translation>
    </message>
    <message>
        <source>Open Angle:</source>
        <translation>Open Angle:</translation>
    </message>
    <message>
        <source>Pick Backing Color</source>
        <translation>Pick Backing Color</translation>
    </message>
    <message>
        <source>R:</source>
        <translation>R:</translation>
    </message>
    <message>
        <source>S:</source>
        <translation>S:</translation>
    </message>
    <message>
        <source>Shadow Enhancement</source>
        <translation>Shadow Enhancement</translation>
    </message>
    <message>
        <source>Shadow:</source>
        <translation>Shadow:</translation>
    </message>
    <message>
        <source>Shrink Left</source>
        <translation>Shrink Left</translation>
    </message>
    <message>
        <source>Shrink Right</source>
        <translation>Shrink Right</translation>
    </message>
    <message>
        <source>Soft Edge</source>
        <translation>Soft Edge</translation>
    </message>
    <message>
        <source>Spill Balance:</source>
        <translation>Spill Balance:</translation>
    </message>
    <message>
        <source>Spill Enhance:</source>
        <translation>Spill Enhance:</translation>
    </message>
    <message>
        <source>Spill Suppression</source>
        <translation>Spill Suppression</translation>
    </message>
    <message>
        <source>Spill Suppression:</source>
        <translation>Spill Suppression:</translation>
    </message>
    <message>
        <source>Vivid</source>
        <translation>Vivid</translation>
    </message>
    <message>
        <source>Warm</source>
        <translation>Warm</translation>
    </message>
    <message>
        <source>White Level:</source>
        <translation>White Level:</translation>
    </message>
</context>
<context>
    <name>PagePostProcessor</name>
    <message>
        <source>B Black Level:</source>
        <translation>B Black Level:</translation>
    </message>
    <message>
        <source>B White Level:</source>
        <translation>B White Level:</translation>
    </message>
    <message>
        <source>BG Blur</source>
        <translation>BG Blur</translation>
    </message>
    <message>
        <source>Blur Level:</source>
        <translation>Blur Level:</translation>
    </message>
    <message>
        <source>Blur Time:</source>
        <translation>Blur Time:</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>Brightness:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>Contrast:</translation>
    </message>
    <message>
        <source>FG Corrector</source>
        <translation>FG Corrector</translation>
    </message>
    <message>
        <source>FG PostAmp</source>
        <translation>FG PostAmp</translation>
    </message>
    <message>
        <source>G Black Level:</source>
        <translation>G Black Level:</translation>
    </message>
    <message>
        <source>G White Level:</source>
        <translation>G White Level:</translation>
    </message>
    <message>
        <source>Hue:</source>
        <translation>Hue:</translation>
    </message>
    <message>
        <source>R Black Level:</source>
        <translation>R Black Level:</translation>
    </message>
    <message>
        <source>R White Level:</source>
        <translation>R White Level:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>Saturation:</translation>
    </message>
</context>
<context>
    <name>PageGarbageMask</name>
    <message>
        <source>Border:</source>
        <translation>Border:</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <translation>Bottom:</translation>
    </message>
    <message>
        <source>Garbage Window</source>
        <translation>Garbage Window</translation>
    </message>
    <message>
        <source>Invert:</source>
        <translation>Invert:</translation>
    </message>
    <message>
        <source>Left:</source>
        <translation>Left:</translation>
    </message>
    <message>
        <source>Right:</source>
        <translation>Right:</translation>
    </message>
    <message>
        <source>Top:</source>
        <translation>Top:</translation>
    </message>
</context>
<context>
    <name>PageHoldoutWindow</name>
    <message>
        <source>Border:</source>
        <translation>Border:</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <translation>Bottom:</translation>
    </message>
    <message>
        <source>Holdout Window</source>
        <translation>Holdout Window</translation>
    </message>
    <message>
        <source>Invert:</source>
        <translation>Invert:</translation>
    </message>
    <message>
        <source>Left:</source>
        <translation>Left:</translation>
    </message>
    <message>
        <source>Right:</source>
        <translation>Right:</translation>
    </message>
    <message>
        <source>Top:</source>
        <translation>Top:</translation>
    </message>
</context>
<context>
    <name>PageAuxLumakey</name>
    <message>
        <source>Aux Lumakey</source>
        <translation>Aux Lumakey</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Black</translation>
    </message>
    <message>
        <source>Chromakey on top</source>
        <translation>Chromakey on top</translation>
    </message>
    <message>
        <source>Cut Off:</source>
        <translation>Cut Off:</translation>
    </message>
    <message>
        <source>Key Mode:</source>
        <translation>Key Mode:</translation>
    </message>
    <message>
        <source>Layer Swap:</source>
        <translation>Layer Swap:</translation>
    </message>
    <message>
        <source>Lumakey on top</source>
        <translation>Lumakey on top</translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation>Opacity:</translation>
    </message>
    <message>
        <source>Softness:</source>
        <translation>Softness:</translation>
    </message>
    <message>
        <source>Swap Time:</source>
        <translation>Swap Time:</translation>
    </message>
    <message>
        <source>White</source>
        <translation>White</translation>
    </message>
</context>
<context>
    <name>MyControlItem</name>
    <message>
        <source></source>
        <translation></translation>
    </message>
</context>
</TS>
