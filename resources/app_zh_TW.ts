<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en">
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
        <translation>自動影像輸出格式</translation>
    </message>
    <message>
        <source>Aux Lumakey</source>
        <translation>Aux 亮度鍵</translation>
    </message>
    <message>
        <source>BG</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Bootloader Version</source>
        <translation>Bootloader 版本</translation>
    </message>
    <message>
        <source>Chromakey</source>
        <translation>色度去背</translation>
    </message>
    <message>
        <source>Comp</source>
        <translation>混合</translation>
    </message>
    <message>
        <source>FACTORY RESET</source>
        <translation>恢復預設值</translation>
    </message>
    <message>
        <source>FG</source>
        <translation>前景</translation>
    </message>
    <message>
        <source>FPGA Version</source>
        <translation>FPGA 版本</translation>
    </message>
    <message>
        <source>FW Version</source>
        <translation>主機板軟體版本</translation>
    </message>
    <message>
        <source>Factory Default</source>
        <translation>預設值</translation>
    </message>
    <message>
        <source>Garbage Mask</source>
        <translation>無用遮罩</translation>
    </message>
    <message>
        <source>HDMI Output Format</source>
        <translation>HDMI輸出格式</translation>
    </message>
    <message>
        <source>Holdout Mask</source>
        <translation>保持遮罩</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>輸入設置</translation>
    </message>
    <message>
        <source>Matte</source>
        <translation>遮罩</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>鏡像</translation>
    </message>
    <message>
        <source>Output Resolution</source>
        <translation>輸出影像格式</translation>
    </message>
    <message>
        <source>PFG</source>
        <translation>PFG</translation>
    </message>
    <message>
        <source>PGM(HDMI):</source>
        <translation>主畫面 (HDMI):</translation>
    </message>
    <message>
        <source>PGM(SDI):</source>
        <translation>主畫面 (SDI):</translation>
    </message>
    <message>
        <source>PVW (SDI/HDMI):</source>
        <translation>預覽 (SDI/HDMI):</translation>
    </message>
    <message>
        <source>Post-Processor</source>
        <translation>後置校正</translation>
    </message>
    <message>
        <source>SETUP</source>
        <translation>設置</translation>
    </message>
    <message>
        <source>SETUP SAVE</source>
        <translation>設置儲存</translation>
    </message>
    <message>
        <source>User</source>
        <translation>記憶</translation>
    </message>
    <message>
        <source>User Memory:</source>
        <translation>用戶記憶:</translation>
    </message>
    <message>
        <source>Address Mode</source>
        <translation>位址模式</translation>
    </message>
    <message>
        <source>CONNECT</source>
        <translation>連接</translation>
    </message>
    <message>
        <source>Comport</source>
        <translation>串列埠</translation>
    </message>
    <message>
        <source>Config</source>
        <translation>設置</translation>
    </message>
    <message>
        <source>EtherNetCard</source>
        <translation>網路卡</translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation>閘道</translation>
    </message>
    <message>
        <source>Host Name</source>
        <translation>主機名稱</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP 地址</translation>
    </message>
    <message>
        <source>IP Select</source>
        <translation>位址選擇</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>介面型式</translation>
    </message>
    <message>
        <source>Mac Address</source>
        <translation>MAC 地址</translation>
    </message>
    <message>
        <source>Network Mask</source>
        <translation>子網路遮罩</translation>
    </message>
    <message>
        <source>Primary DNS</source>
        <translation>主要DNS</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>重新連接</translation>
    </message>
    <message>
        <source>Secondary DNS</source>
        <translation>次要DNS</translation>
    </message>
    <message>
        <source>Static IP</source>
        <translation>固定 IP</translation>
    </message>
    <message>
        <source>WARNING</source>
        <translation>警示</translation>
    </message>
    <message>
        <source> not ready.</source>
        <translation> 還沒準備好.</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已連接</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>取消連接</translation>
    </message>
    <message>
        <source>Disconnecting</source>
        <translation>正在取消連接</translation>
    </message>
    <message>
        <source>Do you want to reset factory default?</source>
        <translation>恢復預設值嗎?</translation>
    </message>
    <message>
        <source>IP Address is not 
in the same network.</source>
        <translation>IP地址
不在相同網段.</translation>
    </message>
    <message>
        <source>Network </source>
        <translation>網路 </translation>
    </message>
    <message>
        <source>Network interface is empty.</source>
        <translation>沒找到網卡.</translation>
    </message>
    <message>
        <source>Please reboot this device: 
</source>
        <translation>請重啟設備: 
</translation>
    </message>
    <message>
        <source>Please scan and find devices first.</source>
        <translation>請先搜尋設備.</translation>
    </message>
    <message>
        <source>Reset Successfully</source>
        <translation>重設成功</translation>
    </message>
    <message>
        <source>Save Successfully</source>
        <translation>儲存成功</translation>
    </message>
    <message>
        <source>Saving...</source>
        <translation>正在儲存...</translation>
    </message>
    <message>
        <source>Scanning...</source>
        <translation>搜尋中...</translation>
    </message>
    <message>
        <source>Setting completed.</source>
        <translation>設定完成.</translation>
    </message>
    <message>
        <source>Setting up...</source>
        <translation>正在設定...</translation>
    </message>
    <message>
        <source>The system has been disconnected.
Please reconnect.
</source>
        <translation>系統已離線.
請重新連線.
</translation>
    </message>
    <message>
        <source>To edit network config, please Scan first.</source>
        <translation>修改網路資訊請先搜尋設備.</translation>
    </message>
</context>
<context>
    <name>mainControl</name>
    <message>
        <source>
is not found.</source>
        <translation>
未找到.</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>取消連接</translation>
    </message>
    <message>
        <source>Gateway Address format incorrect.</source>
        <translation>閘道位址格式錯誤.</translation>
    </message>
    <message>
        <source>IP Address format incorrect.</source>
        <translation>IP位址格式錯誤.</translation>
    </message>
    <message>
        <source>Mask Address format incorrect.</source>
        <translation>子網路遮罩位址格式錯誤.</translation>
    </message>
    <message>
        <source>Netmask Address format incorrect.</source>
        <translation>子網路遮罩位址格式錯誤.</translation>
    </message>
    <message>
        <source>Previous device MAC address </source>
        <translation>儲存的設備MAC位址 </translation>
    </message>
    <message>
        <source>Previous selected netcard</source>
        <translation>前次選取的網卡</translation>
    </message>
    <message>
        <source>PrimDNS Address format incorrect.</source>
        <translation>主要DNS位址格式錯誤.</translation>
    </message>
    <message>
        <source>Primary DNS Address format incorrect.</source>
        <translation>主要DNS位址格式錯誤.</translation>
    </message>
    <message>
        <source>Saved device info is not match.
Please scan again to refresh.</source>
        <translation>儲存的設備資訊不匹配.
請重新搜尋更新資訊.</translation>
    </message>
    <message>
        <source>SecDNS Address format incorrect.</source>
        <translation>次要DNS位址格式錯誤.</translation>
    </message>
    <message>
        <source>Secondary DNS Address format incorrect.</source>
        <translation>次要DNS位址格式錯誤.</translation>
    </message>
    <message>
        <source>is not existing.</source>
        <translation>不存在.</translation>
    </message>
</context>
<context>
    <name>qkv720</name>
    <message>
        <source>Device disconnected.</source>
        <translation>設備未連接.</translation>
    </message>
    <message>
        <source>Ethernet not Connected!</source>
        <translation>網路未連接!</translation>
    </message>
    <message>
        <source>Get Input Source failed. 
Device may be disconnected.</source>
        <translation>讀取輸入來源失敗.
設備可能斷線.</translation>
    </message>
    <message>
        <source>Get Version failed. 
Device may be disconnected.</source>
        <translation>讀取版號失敗.
設備可能斷線.</translation>
    </message>
    <message>
        <source>Get Video Out failed. 
Device may be disconnected.</source>
        <translation>讀取輸出失敗.
設備可能斷線.</translation>
    </message>
    <message>
        <source>Get Vin Resolution failed. 
Device may be disconnected.</source>
        <translation>讀取輸入解析度失敗.
設備可能斷線.</translation>
    </message>
</context>
<context>
    <name>HLNP</name>
    <message>
        <source>Gate address format error</source>
        <translation>閘道位址格式錯誤</translation>
    </message>
    <message>
        <source>Gateway address format error</source>
        <translation>閘道位址格式錯誤</translation>
    </message>
    <message>
        <source>IP format error</source>
        <translation>IP位址格式錯誤</translation>
    </message>
    <message>
        <source>MAC address format error</source>
        <translation>MAC位址格式錯誤</translation>
    </message>
    <message>
        <source>Mask address format error</source>
        <translation>子網路遮罩位址格式錯誤</translation>
    </message>
    <message>
        <source>PrimDNS address format error</source>
        <translation>主要DNS位址格式錯誤</translation>
    </message>
    <message>
        <source>Reset device network configuration?</source>
        <translation>重設網路設定?</translation>
    </message>
    <message>
        <source>Save device network configuration?</source>
        <translation>儲存網路設定?</translation>
    </message>
    <message>
        <source>SecDNS address format error</source>
        <translation>次要DNS位址格式錯誤</translation>
    </message>
    <message>
        <source>Setting error, please check IP address:</source>
        <translation>設定錯誤, 請檢查IP位址:</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警示</translation>
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
        <translation>凍結畫面</translation>
    </message>
    <message>
        <source>Genlock</source>
        <translation>同步鎖相</translation>
    </message>
    <message>
        <source>Horizontal Offset:</source>
        <translation>水平偏移:</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>鎖定</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>來源</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>狀態</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>類型</translation>
    </message>
    <message>
        <source>Unlocked</source>
        <translation>未鎖定</translation>
    </message>
    <message>
        <source>Vertical Offset:</source>
        <translation>垂直偏移:</translation>
    </message>
</context>
<context>
    <name>PageChromakey</name>
    <message>
        <source>B:</source>
        <translation>藍:</translation>
    </message>
    <message>
        <source>Backing Color:</source>
        <translation>螢幕顏色:</translation>
    </message>
    <message>
        <source>Black Level:</source>
        <translation>黑電平:</translation>
    </message>
    <message>
        <source>Bright</source>
        <translation>亮階</translation>
    </message>
    <message>
        <source>Bright Balance:</source>
        <translation>亮階平衡:</translation>
    </message>
    <message>
        <source>Bright Density:</source>
        <translation>亮階密度:</translation>
    </message>
    <message>
        <source>Bright Enhancement</source>
        <translation>亮階加強</translation>
    </message>
    <message>
        <source>Bright Level:</source>
        <translation>亮電平:</translation>
    </message>
    <message>
        <source>Color Adjustment</source>
        <translation>顏色調整</translation>
    </message>
    <message>
        <source>Cool</source>
        <translation>冷色調</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>暗階</translation>
    </message>
    <message>
        <source>Dark Balance:</source>
        <translation>暗階平衡:</translation>
    </message>
    <message>
        <source>Dark Density:</source>
        <translation>暗階密度:</translation>
    </message>
    <message>
        <source>Dark Enhancement</source>
        <translation>暗階加強</translation>
    </message>
    <message>
        <source>Dark Level:</source>
        <translation>暗電平:</translation>
    </message>
    <message>
        <source>Default:</source>
        <translation>重設模式:</translation>
    </message>
    <message>
        <source>Edge Brightness:</source>
        <translation>邊緣亮度:</translation>
    </message>
    <message>
        <source>Edge Fix (HD only)</source>
        <translation>邊緣調整 (HD)</translation>
    </message>
    <message>
        <source>Enhance</source>
        <translation>加強</translation>
    </message>
    <message>
        <source>G:</source>
        <translation>綠:</translation>
    </message>
    <message>
        <source>H:</source>
        <translation>色相:</translation>
    </message>
    <message>
        <source>L:</source>
        <translation>亮度:</translation>
    </message>
    <message>
        <source>Matte Generation</source>
        <translation>遮罩產生</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中</translation>
    </message>
    <message>
        <source>Open Angle:</source>
        <translation>展開角度:</translation>
    </message>
    <message>
        <source>Pick Backing Color</source>
        <translation>取樣螢幕顏色</translation>
    </message>
    <message>
        <source>R:</source>
        <translation>紅:</translation>
    </message>
    <message>
        <source>S:</source>
        <translation>飽和:</translation>
    </message>
    <message>
        <source>Shadow Enhancement</source>
        <translation>陰影加強</translation>
    </message>
    <message>
        <source>Shadow:</source>
        <translation>陰影:</translation>
    </message>
    <message>
        <source>Shrink Left</source>
        <translation>左側縮邊</translation>
    </message>
    <message>
        <source>Shrink Right</source>
        <translation>右側縮邊</translation>
    </message>
    <message>
        <source>Soft Edge</source>
        <translation>柔邊</translation>
    </message>
    <message>
        <source>Spill Balance:</source>
        <translation>溢出平衡:</translation>
    </message>
    <message>
        <source>Spill Enhance:</source>
        <translation>溢出加強:</translation>
    </message>
    <message>
        <source>Spill Suppression</source>
        <translation>溢出抑制</translation>
    </message>
    <message>
        <source>Spill Suppression:</source>
        <translation>溢出抑制:</translation>
    </message>
    <message>
        <source>Vivid</source>
        <translation>增豔</translation>
    </message>
    <message>
        <source>Warm</source>
        <translation>暖色調</translation>
    </message>
    <message>
        <source>White Level:</source>
        <translation>白電平:</translation>
    </message>
</context>
<context>
    <name>PagePostProcessor</name>
    <message>
        <source>B Black Level:</source>
        <translation>藍暗電平:</translation>
    </message>
    <message>
        <source>B White Level:</source>
        <translation>藍亮電平:</translation>
    </message>
    <message>
        <source>BG Blur</source>
        <translation>背景模糊</translation>
    </message>
    <message>
        <source>Blur Level:</source>
        <translation>模糊程度:</translation>
    </message>
    <message>
        <source>Blur Time:</source>
        <translation>漸變時間:</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>亮度:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>對比:</translation>
    </message>
    <message>
        <source>FG Corrector</source>
        <translation>前景調色</translation>
    </message>
    <message>
        <source>FG PostAmp</source>
        <translation>前景後置放大</translation>
    </message>
    <message>
        <source>G Black Level:</source>
        <translation>綠暗電平:</translation>
    </message>
    <message>
        <source>G White Level:</source>
        <translation>綠亮電平:</translation>
    </message>
    <message>
        <source>Hue:</source>
        <translation>色相:</translation>
    </message>
    <message>
        <source>R Black Level:</source>
        <translation>紅暗電平:</translation>
    </message>
    <message>
        <source>R White Level:</source>
        <translation>紅亮電平:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>飽和度:</translation>
    </message>
</context>
<context>
    <name>PageGarbageMask</name>
    <message>
        <source>Border:</source>
        <translation>柔邊:</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <translation>下:</translation>
    </message>
    <message>
        <source>Garbage Window</source>
        <translation>無用窗口位置</translation>
    </message>
    <message>
        <source>Invert:</source>
        <translation>反相:</translation>
    </message>
    <message>
        <source>Left:</source>
        <translation>左:</translation>
    </message>
    <message>
        <source>Right:</source>
        <translation>右:</translation>
    </message>
    <message>
        <source>Top:</source>
        <translation>上:</translation>
    </message>
</context>
<context>
    <name>PageHoldoutWindow</name>
    <message>
        <source>Border:</source>
        <translation>柔邊:</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <translation>下:</translation>
    </message>
    <message>
        <source>Holdout Window</source>
        <translation>保持窗口位置</translation>
    </message>
    <message>
        <source>Invert:</source>
        <translation>反相:</translation>
    </message>
    <message>
        <source>Left:</source>
        <translation>左:</translation>
    </message>
    <message>
        <source>Right:</source>
        <translation>右:</translation>
    </message>
    <message>
        <source>Top:</source>
        <translation>上:</translation>
    </message>
</context>
<context>
    <name>PageAuxLumakey</name>
    <message>
        <source>Aux Lumakey</source>
        <translation>Aux 亮度鍵</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>黑</translation>
    </message>
    <message>
        <source>Chromakey on top</source>
        <translation>色鍵置頂</translation>
    </message>
    <message>
        <source>Cut Off:</source>
        <translation>清除程度:</translation>
    </message>
    <message>
        <source>Key Mode:</source>
        <translation>模式:</translation>
    </message>
    <message>
        <source>Layer Swap:</source>
        <translation>換層:</translation>
    </message>
    <message>
        <source>Lumakey on top</source>
        <translation>亮度鍵置頂</translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation>實心度:</translation>
    </message>
    <message>
        <source>Softness:</source>
        <translation>柔和範圍:</translation>
    </message>
    <message>
        <source>Swap Time:</source>
        <translation>換層時間:</translation>
    </message>
    <message>
        <source>White</source>
        <translation>白</translation>
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
