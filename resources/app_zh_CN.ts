<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>main</name>
    <message>
        <source></source>
        <translation></translation>
    </message>
    <message>
        <source>AUX</source>
        <translation>辅助源</translation>
    </message>
    <message>
        <source>Auto Output Resolution</source>
        <translation>自动影像输出格式</translation>
    </message>
    <message>
        <source>Aux Lumakey</source>
        <translation>辅助源亮度键</translation>
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
        <translation>色度抠像</translation>
    </message>
    <message>
        <source>Comp</source>
        <translation>合成</translation>
    </message>
    <message>
        <source>FACTORY RESET</source>
        <translation>恢复默认值</translation>
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
        <translation>主板软件版本</translation>
    </message>
    <message>
        <source>Factory Default</source>
        <translation>默认值</translation>
    </message>
    <message>
        <source>Garbage Mask</source>
        <translation>清除屏蔽</translation>
    </message>
    <message>
        <source>HDMI Output Format</source>
        <translation>HDMI输出格式</translation>
    </message>
    <message>
        <source>Holdout Mask</source>
        <translation>保留屏蔽</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>输入设置</translation>
    </message>
    <message>
        <source>Matte</source>
        <translation>键源</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>镜像</translation>
    </message>
    <message>
        <source>Output Resolution</source>
        <translation>输出影像格式</translation>
    </message>
    <message>
        <source>PFG</source>
        <translation>键填充</translation>
    </message>
    <message>
        <source>PGM(HDMI):</source>
        <translation>主画面 (HDMI):</translation>
    </message>
    <message>
        <source>PGM(SDI):</source>
        <translation>主画面 (SDI):</translation>
    </message>
    <message>
        <source>PVW (SDI/HDMI):</source>
        <translation>预览 (SDI/HDMI):</translation>
    </message>
    <message>
        <source>Post-Processor</source>
        <translation>后置校正</translation>
    </message>
    <message>
        <source>SETUP</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>SETUP SAVE</source>
        <translation>设置储存</translation>
    </message>
    <message>
        <source>User</source>
        <translation>记忆</translation>
    </message>
    <message>
        <source>User Memory:</source>
        <translation>用户记忆:</translation>
    </message>
    <message>
        <source>Address Mode</source>
        <translation>地址模式</translation>
    </message>
    <message>
        <source>CONNECT</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>Comport</source>
        <translation>串行埠</translation>
    </message>
    <message>
        <source>Config</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>EtherNetCard</source>
        <translation>网络卡</translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation>网关</translation>
    </message>
    <message>
        <source>Host Name</source>
        <translation>主机名</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP 地址</translation>
    </message>
    <message>
        <source>IP Select</source>
        <translation>地址选择</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>接口型式</translation>
    </message>
    <message>
        <source>Mac Address</source>
        <translation>MAC 地址</translation>
    </message>
    <message>
        <source>Network Mask</source>
        <translation>子网掩码</translation>
    </message>
    <message>
        <source>Primary DNS</source>
        <translation>主要DNS</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>重新连接</translation>
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
        <translation> 还没准备好.</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>取消连接</translation>
    </message>
    <message>
        <source>Disconnecting</source>
        <translation>正在取消连接</translation>
    </message>
    <message>
        <source>Do you want to reset factory default?</source>
        <translation>恢复默认值吗?</translation>
    </message>
    <message>
        <source>IP Address is not 
in the same network.</source>
        <translation>IP地址
不在相同网段.</translation>
    </message>
    <message>
        <source>Network </source>
        <translation>网络 </translation>
    </message>
    <message>
        <source>Network interface is empty.</source>
        <translation>没找到网卡.</translation>
    </message>
    <message>
        <source>Please reboot this device: 
</source>
        <translation>请重启设备: 
</translation>
    </message>
    <message>
        <source>Please scan and find devices first.</source>
        <translation>请先搜寻设备.</translation>
    </message>
    <message>
        <source>Reset Successfully</source>
        <translation>重设成功</translation>
    </message>
    <message>
        <source>Save Successfully</source>
        <translation>储存成功</translation>
    </message>
    <message>
        <source>Saving...</source>
        <translation>正在储存...</translation>
    </message>
    <message>
        <source>Scanning...</source>
        <translation>搜寻中...</translation>
    </message>
    <message>
        <source>Setting completed.</source>
        <translation>设定完成.</translation>
    </message>
    <message>
        <source>Setting up...</source>
        <translation>正在设定...</translation>
    </message>
    <message>
        <source>The system has been disconnected.
Please reconnect.
</source>
        <translation>系统已脱机.
请重新联机.
</translation>
    </message>
    <message>
        <source>To edit network config, please Scan first.</source>
        <translation>修改网络信息请先搜寻设备.</translation>
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
        <translation>取消连接</translation>
    </message>
    <message>
        <source>Gateway Address format incorrect.</source>
        <translation>网关地址格式错误.</translation>
    </message>
    <message>
        <source>IP Address format incorrect.</source>
        <translation>IP地址格式错误.</translation>
    </message>
    <message>
        <source>Mask Address format incorrect.</source>
        <translation>子网掩码地址格式错误.</translation>
    </message>
    <message>
        <source>Netmask Address format incorrect.</source>
        <translation>子网掩码地址格式错误.</translation>
    </message>
    <message>
        <source>Previous device MAC address </source>
        <translation>储存的设备MAC地址 </translation>
    </message>
    <message>
        <source>Previous selected netcard</source>
        <translation>前次选取的网卡</translation>
    </message>
    <message>
        <source>PrimDNS Address format incorrect.</source>
        <translation>主要DNS地址格式错误.</translation>
    </message>
    <message>
        <source>Primary DNS Address format incorrect.</source>
        <translation>主要DNS地址格式错误.</translation>
    </message>
    <message>
        <source>Saved device info is not match.
Please scan again to refresh.</source>
        <translation>储存的设备信息不匹配.
请重新搜寻更新信息.</translation>
    </message>
    <message>
        <source>SecDNS Address format incorrect.</source>
        <translation>次要DNS地址格式错误.</translation>
    </message>
    <message>
        <source>Secondary DNS Address format incorrect.</source>
        <translation>次要DNS地址格式错误.</translation>
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
        <translation>设备未连接.</translation>
    </message>
    <message>
        <source>Ethernet not Connected!</source>
        <translation>网络未连接!</translation>
    </message>
    <message>
        <source>Get Input Source failed. 
Device may be disconnected.</source>
        <translation>读取输入来源失败.
设备可能断线.</translation>
    </message>
    <message>
        <source>Get Version failed. 
Device may be disconnected.</source>
        <translation>读取版号失败.
设备可能断线.</translation>
    </message>
    <message>
        <source>Get Video Out failed. 
Device may be disconnected.</source>
        <translation>读取输出失败.
设备可能断线.</translation>
    </message>
    <message>
        <source>Get Vin Resolution failed. 
Device may be disconnected.</source>
        <translation>读取输入分辨率失败.
设备可能断线.</translation>
    </message>
</context>
<context>
    <name>HLNP</name>
    <message>
        <source>Gate address format error</source>
        <translation>网关地址格式错误</translation>
    </message>
    <message>
        <source>Gateway address format error</source>
        <translation>网关地址格式错误</translation>
    </message>
    <message>
        <source>IP format error</source>
        <translation>IP地址格式错误</translation>
    </message>
    <message>
        <source>MAC address format error</source>
        <translation>MAC地址格式错误</translation>
    </message>
    <message>
        <source>Mask address format error</source>
        <translation>子网掩码地址格式错误</translation>
    </message>
    <message>
        <source>PrimDNS address format error</source>
        <translation>主要DNS地址格式错误</translation>
    </message>
    <message>
        <source>Reset device network configuration?</source>
        <translation>重设网络设置?</translation>
    </message>
    <message>
        <source>Save device network configuration?</source>
        <translation>储存网络设置?</translation>
    </message>
    <message>
        <source>SecDNS address format error</source>
        <translation>次要DNS地址格式错误</translation>
    </message>
    <message>
        <source>Setting error, please check IP address:</source>
        <translation>设定错误, 请检查IP地址:</translation>
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
        <translation>辅助源</translation>
    </message>
    <message>
        <source>BG</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>EXT.SYNC</source>
        <translation>外同步</translation>
    </message>
    <message>
        <source>FG</source>
        <translation>前景</translation>
    </message>
    <message>
        <source>Freeze</source>
        <translation>冻结画面</translation>
    </message>
    <message>
        <source>Genlock</source>
        <translation>同步锁相</translation>
    </message>
    <message>
        <source>Horizontal Offset:</source>
        <translation>水平偏移:</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>锁定</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>来源</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Unlocked</source>
        <translation>未锁定</translation>
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
        <translation>蓝:</translation>
    </message>
    <message>
        <source>Backing Color:</source>
        <translation>屏幕颜色:</translation>
    </message>
    <message>
        <source>Black Level:</source>
        <translation>黑电平:</translation>
    </message>
    <message>
        <source>Bright</source>
        <translation>亮阶</translation>
    </message>
    <message>
        <source>Bright Balance:</source>
        <translation>亮阶平衡:</translation>
    </message>
    <message>
        <source>Bright Density:</source>
        <translation>亮阶密度:</translation>
    </message>
    <message>
        <source>Bright Enhancement</source>
        <translation>亮阶加强</translation>
    </message>
    <message>
        <source>Bright Level:</source>
        <translation>亮电平:</translation>
    </message>
    <message>
        <source>Color Adjustment</source>
        <translation>颜色调整</translation>
    </message>
    <message>
        <source>Cool</source>
        <translation>冷色调</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>暗阶</translation>
    </message>
    <message>
        <source>Dark Balance:</source>
        <translation>暗阶平衡:</translation>
    </message>
    <message>
        <source>Dark Density:</source>
        <translation>暗阶密度:</translation>
    </message>
    <message>
        <source>Dark Enhancement</source>
        <translation>暗阶加强</translation>
    </message>
    <message>
        <source>Dark Level:</source>
        <translation>暗电平:</translation>
    </message>
    <message>
        <source>Default:</source>
        <translation>重设模式:</translation>
    </message>
    <message>
        <source>Edge Brightness:</source>
        <translation>边缘亮度:</translation>
    </message>
    <message>
        <source>Edge Fix (HD only)</source>
        <translation>边缘调整 (HD)</translation>
    </message>
    <message>
        <source>Enhance</source>
        <translation>加强</translation>
    </message>
    <message>
        <source>G:</source>
        <translation>绿:</translation>
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
        <translation>屏蔽产生</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>中</translation>
    </message>
    <message>
        <source>Open Angle:</source>
        <translation>展开角度:</translation>
    </message>
    <message>
        <source>Pick Backing Color</source>
        <translation>取样屏幕颜色</translation>
    </message>
    <message>
        <source>R:</source>
        <translation>红:</translation>
    </message>
    <message>
        <source>S:</source>
        <translation>饱和:</translation>
    </message>
    <message>
        <source>Shadow Enhancement</source>
        <translation>阴影加强</translation>
    </message>
    <message>
        <source>Shadow:</source>
        <translation>阴影:</translation>
    </message>
    <message>
        <source>Shrink Left</source>
        <translation>左侧缩边</translation>
    </message>
    <message>
        <source>Shrink Right</source>
        <translation>右侧缩边</translation>
    </message>
    <message>
        <source>Soft Edge</source>
        <translation>柔边</translation>
    </message>
    <message>
        <source>Spill Balance:</source>
        <translation>溢出平衡:</translation>
    </message>
    <message>
        <source>Spill Enhance:</source>
        <translation>溢出加强:</translation>
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
        <translation>增艳</translation>
    </message>
    <message>
        <source>Warm</source>
        <translation>暖色调</translation>
    </message>
    <message>
        <source>White Level:</source>
        <translation>白电平:</translation>
    </message>
</context>
<context>
    <name>PagePostProcessor</name>
    <message>
        <source>B Black Level:</source>
        <translation>蓝暗电平:</translation>
    </message>
    <message>
        <source>B White Level:</source>
        <translation>蓝亮电平:</translation>
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
        <translation>渐变时间:</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>亮度:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>对比:</translation>
    </message>
    <message>
        <source>FG Corrector</source>
        <translation>前景调色</translation>
    </message>
    <message>
        <source>FG PostAmp</source>
        <translation>前景后置放大</translation>
    </message>
    <message>
        <source>G Black Level:</source>
        <translation>绿暗电平:</translation>
    </message>
    <message>
        <source>G White Level:</source>
        <translation>绿亮电平:</translation>
    </message>
    <message>
        <source>Hue:</source>
        <translation>色相:</translation>
    </message>
    <message>
        <source>R Black Level:</source>
        <translation>红暗电平:</translation>
    </message>
    <message>
        <source>R White Level:</source>
        <translation>红亮电平:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>饱和度:</translation>
    </message>
</context>
<context>
    <name>PageGarbageMask</name>
    <message>
        <source>Border:</source>
        <translation>柔边:</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <translation>下:</translation>
    </message>
    <message>
        <source>Garbage Window</source>
        <translation>清除范围 (外)</translation>
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
        <translation>柔边:</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <translation>下:</translation>
    </message>
    <message>
        <source>Holdout Window</source>
        <translation>保留范围 (内)</translation>
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
        <translation>辅助源亮度键</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>黑</translation>
    </message>
    <message>
        <source>Chromakey on top</source>
        <translation>色键置顶</translation>
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
        <translation>换层:</translation>
    </message>
    <message>
        <source>Lumakey on top</source>
        <translation>亮度键置顶</translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation>实心度:</translation>
    </message>
    <message>
        <source>Softness:</source>
        <translation>柔和范围:</translation>
    </message>
    <message>
        <source>Swap Time:</source>
        <translation>换层时间:</translation>
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
