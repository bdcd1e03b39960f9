<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>ConnectByIpDialog</name>
    <message>
        <source>Connect by IP Address</source>
        <translation>通过 IP 地址连接</translation>
    </message>
    <message>
        <source>IP &amp;Address</source>
        <translation>IP 地址(&amp;A)</translation>
    </message>
</context>
<context>
    <name>DeviceTreeModel</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
</context>
<context>
    <name>GenErrorsDlg</name>
    <message>
        <source>Gen&lt;i&gt;Cam errors</source>
        <translation>Gen&lt;i&gt;Cam 错误</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>错误</translation>
    </message>
</context>
<context>
    <name>GenParamTreeModel</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>&lt;Value not available&gt;</source>
        <translation>&lt;值不可用&gt;</translation>
    </message>
    <message>
        <source>&lt;Value not readable&gt;</source>
        <translation>&lt;值不可读&gt;</translation>
    </message>
    <message>
        <source>Integer</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>Boolean</source>
        <translation>布尔</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>浮点数</translation>
    </message>
    <message>
        <source>String</source>
        <translation>字符串</translation>
    </message>
    <message>
        <source>Enumeration</source>
        <translation>枚举</translation>
    </message>
    <message>
        <source>&lt;i&gt;Selectors:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;选择器:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Valid values&lt;/i&gt;: %1</source>
        <translation>&lt;i&gt;有效值&lt;/i&gt;: %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Limits&lt;/i&gt;: Min: %1, Max: %2</source>
        <translation>&lt;i&gt;范围&lt;/i&gt;: 最小: %1, 最大: %2</translation>
    </message>
    <message>
        <source>&lt;i&gt;Increment&lt;/i&gt;: %1</source>
        <translation>&lt;i&gt;步长&lt;/i&gt;: %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Enumeration entries&lt;/i&gt;:</source>
        <translation>&lt;i&gt;枚举项&lt;/i&gt;:</translation>
    </message>
    <message>
        <source>&lt;i&gt;Name:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;名称:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Type:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;类型:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Description:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;描述:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>&lt;i&gt;Streamable:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;可保存:&lt;/i&gt; %1</translation>
    </message>
    <message>
        <source>True</source>
        <translation>真</translation>
    </message>
    <message>
        <source>False</source>
        <translation>假</translation>
    </message>
    <message>
        <source>&lt;i&gt;Cachable:&lt;/i&gt; %1</source>
        <translation>&lt;i&gt;可缓存:&lt;/i&gt; %1</translation>
    </message>
</context>
<context>
    <name>GenParamTreeView</name>
    <message>
        <source>GenParamTreeView</source>
        <translation>参数树</translation>
    </message>
    <message>
        <source>Collapse All</source>
        <translation>全部折叠</translation>
    </message>
    <message>
        <source>Expand All</source>
        <translation>全部展开</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Filter by feature name.
Using of wildcard is possible.</source>
        <translation>按参数名称筛选。
可使用通配符。</translation>
    </message>
    <message>
        <source>Visibility:</source>
        <translation>可见性:</translation>
    </message>
    <message>
        <source>Level of feature visibility</source>
        <translation>参数可见级别</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>初级</translation>
    </message>
    <message>
        <source>Expert</source>
        <translation>专家</translation>
    </message>
    <message>
        <source>Guru</source>
        <translation>大师</translation>
    </message>
    <message>
        <source>Show Error Dialog</source>
        <translation>显示错误</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>描述</translation>
    </message>
    <message>
        <source>Clear filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>Filter options</source>
        <translation>筛选选项</translation>
    </message>
    <message>
        <source>Alt+Down opens the filter options</source>
        <translation>Alt+下箭头键打开筛选选项</translation>
    </message>
    <message>
        <source>Case Sensitive</source>
        <translation>区分大小写</translation>
    </message>
    <message>
        <source>Whole Words Only</source>
        <translation>全字匹配</translation>
    </message>
    <message>
        <source>No Errors</source>
        <translation>无错误</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigAboutDialog</name>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>Device Information</source>
        <translation>设备信息</translation>
    </message>
    <message>
        <source>Device Vendor Name:</source>
        <translation>设备厂商名称:</translation>
    </message>
    <message>
        <source>Device Model Name:</source>
        <translation>设备型号名称:</translation>
    </message>
    <message>
        <source>Device Family Name:</source>
        <translation>设备系列名称:</translation>
    </message>
    <message>
        <source>Device Version:</source>
        <translation>设备版本:</translation>
    </message>
    <message>
        <source>Device Firmware Version:</source>
        <translation>设备固件版本:</translation>
    </message>
    <message>
        <source>Device Manufacturer Info:</source>
        <translation>制造商信息:</translation>
    </message>
    <message>
        <source>Device Serial Number:</source>
        <translation>设备序列号:</translation>
    </message>
    <message>
        <source>Device User Defined Name:</source>
        <translation>用户自定义设备名称:</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>版本</translation>
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
        <translation>固件映像:</translation>
    </message>
    <message>
        <source>CustomerID:</source>
        <translation>客户 ID:</translation>
    </message>
    <message>
        <source>FamilyID:</source>
        <translation>系列 ID:</translation>
    </message>
    <message>
        <source>Xml Version:</source>
        <translation>XML 版本:</translation>
    </message>
    <message>
        <source>Sensor Type:</source>
        <translation>传感器类型:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigColorDialog</name>
    <message>
        <source>Color</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>White Balance</source>
        <translation>白平衡</translation>
    </message>
    <message>
        <source>Tracking Speed</source>
        <translation>跟踪速度</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>统计</translation>
    </message>
    <message>
        <source>Red coef.:</source>
        <translation>红色系数:</translation>
    </message>
    <message>
        <source>Green coef.:</source>
        <translation>绿色系数:</translation>
    </message>
    <message>
        <source>Blue coef.:</source>
        <translation>蓝色系数:</translation>
    </message>
    <message>
        <source>4095</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>4095</translation>
    </message>
    <message>
        <source>Manual WB Coef.</source>
        <translation>手动白平衡系数</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红</translation>
    </message>
    <message>
        <source>Red unity</source>
        <translation>红色置一</translation>
    </message>
    <message>
        <source>Unity</source>
        <translation>置一</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿</translation>
    </message>
    <message>
        <source>Green unity</source>
        <translation>绿色置一</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝</translation>
    </message>
    <message>
        <source>Blue unity</source>
        <translation>蓝色置一</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigFrameABDialog</name>
    <message>
        <source>Frame A/B</source>
        <translation>帧 A/B</translation>
    </message>
    <message>
        <source>Output mode:</source>
        <translation>输出模式:</translation>
    </message>
    <message>
        <source>Dual Video:</source>
        <translation>双视频:</translation>
    </message>
    <message>
        <source>Number of A frames</source>
        <translation>A 帧数</translation>
    </message>
    <message>
        <source>Frame-A +</source>
        <translation>帧 A +</translation>
    </message>
    <message>
        <source>Number of B frames</source>
        <translation>B 帧数</translation>
    </message>
    <message>
        <source>Frame-B</source>
        <translation>帧 B</translation>
    </message>
    <message>
        <source>Shutter mode:</source>
        <translation>快门模式:</translation>
    </message>
    <message>
        <source>Rolling</source>
        <translation>卷帘</translation>
    </message>
    <message>
        <source>Global</source>
        <translation>全局</translation>
    </message>
    <message>
        <source>ADC Selector:</source>
        <translation>ADC 选择:</translation>
    </message>
    <message>
        <source>10 bits</source>
        <translation>10 位</translation>
    </message>
    <message>
        <source>12 bits</source>
        <translation>12 位</translation>
    </message>
    <message>
        <source>Frame-A</source>
        <translation>帧 A</translation>
    </message>
    <message>
        <source>Exposure control</source>
        <translation>曝光控制</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>触发</translation>
    </message>
    <message>
        <source>Internal</source>
        <translation>内部</translation>
    </message>
    <message>
        <source>Fixed frame period</source>
        <translation>固定帧周期</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Frame line time</source>
        <translation>帧行时间</translation>
    </message>
    <message>
        <source>Video amplifier</source>
        <translation>视频放大器</translation>
    </message>
    <message>
        <source>Analog Gain:</source>
        <translation>模拟增益:</translation>
    </message>
    <message>
        <source>R</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>R</translation>
    </message>
    <message>
        <source>Frame size</source>
        <translation>帧尺寸</translation>
    </message>
    <message>
        <source>Current size:</source>
        <translation>当前尺寸:</translation>
    </message>
    <message>
        <source>AOI</source>
        <translation>AOI</translation>
    </message>
    <message>
        <source>Full Frame</source>
        <translation>全幅</translation>
    </message>
    <message>
        <source>QFHD</source>
        <translation>QFHD</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>自定义</translation>
    </message>
    <message>
        <source>Subsampling</source>
        <translation>子采样</translation>
    </message>
    <message>
        <source>Averaging</source>
        <translation>平均</translation>
    </message>
    <message>
        <source>Averaging:</source>
        <translation>平均:</translation>
    </message>
    <message>
        <source>Subsampling:</source>
        <translation>子采样:</translation>
    </message>
    <message>
        <source>P:</source>
        <translation>P:</translation>
    </message>
    <message>
        <source>Subsampling P</source>
        <translation>子采样 P</translation>
    </message>
    <message>
        <source>x M:</source>
        <translation>x M:</translation>
    </message>
    <message>
        <source>Subsampling M</source>
        <translation>子采样 M</translation>
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
        <translation>双视频
行时间 [pclk]:</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>行数</translation>
    </message>
    <message>
        <source>Clocks</source>
        <translation>时钟数</translation>
    </message>
    <message>
        <source>Line Time [pclk]:</source>
        <translation>行时间 [pclk]:</translation>
    </message>
    <message>
        <source>OffsetX:</source>
        <translation>X 偏移:</translation>
    </message>
    <message>
        <source>OffsetY:</source>
        <translation>Y 偏移:</translation>
    </message>
    <message>
        <source>Width: </source>
        <translation>宽度: </translation>
    </message>
    <message>
        <source>Height:</source>
        <translation>高度:</translation>
    </message>
    <message>
        <source>Digital Gain:</source>
        <translation>数字增益:</translation>
    </message>
    <message>
        <source>Black Level:</source>
        <translation>黑电平:</translation>
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
        <translation>曝光时间 </translation>
    </message>
</context>
<context>
    <name>MoxCamConfigMainWindow</name>
    <message>
        <source>CamConfig</source>
        <translation>相机配置</translation>
    </message>
    <message>
        <source>Camera Information</source>
        <translation>相机信息</translation>
    </message>
    <message>
        <source>Frame A</source>
        <translation>帧 A</translation>
    </message>
    <message>
        <source>Frame B</source>
        <translation>帧 B</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>尺寸</translation>
    </message>
    <message>
        <source>Size of frame A</source>
        <translation>帧 A 的尺寸</translation>
    </message>
    <message>
        <source>Size of frame B</source>
        <translation>帧 B 的尺寸</translation>
    </message>
    <message>
        <source>PxL</source>
        <translation>像素x行</translation>
    </message>
    <message>
        <source>FPS</source>
        <translation>帧率</translation>
    </message>
    <message>
        <source>Frame rate of frame A</source>
        <translation>帧 A 的帧率</translation>
    </message>
    <message>
        <source>Frame rate of frame B</source>
        <translation>帧 B 的帧率</translation>
    </message>
    <message>
        <source>fps</source>
        <translation>帧/秒</translation>
    </message>
    <message>
        <source>FTM</source>
        <translation>帧时间</translation>
    </message>
    <message>
        <source>Frame time of frame A</source>
        <translation>帧 A 的帧时间</translation>
    </message>
    <message>
        <source>Frame time of frame B</source>
        <translation>帧 B 的帧时间</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>EXP</source>
        <translation>曝光</translation>
    </message>
    <message>
        <source>Exposure time of frame A</source>
        <translation>帧 A 的曝光时间</translation>
    </message>
    <message>
        <source>Exposure time of frame B</source>
        <translation>帧 B 的曝光时间</translation>
    </message>
    <message>
        <source>TMP</source>
        <translation>温度</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>温度</translation>
    </message>
    <message>
        <source>0C</source>
        <translation>0C</translation>
    </message>
    <message>
        <source>Frame A/B</source>
        <translation>帧 A/B</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>触发</translation>
    </message>
    <message>
        <source>Pulse</source>
        <translation>脉冲</translation>
    </message>
    <message>
        <source>Strobe</source>
        <translation>频闪</translation>
    </message>
    <message>
        <source>Data Out</source>
        <translation>数据输出</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>View</source>
        <translation>视图</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>断开</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigOutputDialog</name>
    <message>
        <source>Data Output</source>
        <translation>数据输出</translation>
    </message>
    <message>
        <source>Camera Link Output</source>
        <translation>Camera Link 输出</translation>
    </message>
    <message>
        <source>Taps:</source>
        <translation>抽头:</translation>
    </message>
    <message>
        <source>Depth:</source>
        <translation>位深:</translation>
    </message>
    <message>
        <source>Pixel Type</source>
        <translation>像素类型</translation>
    </message>
    <message>
        <source>Pixel Format:</source>
        <translation>像素格式:</translation>
    </message>
    <message>
        <source>LUT Settings</source>
        <translation>LUT 设置</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Lookup table</source>
        <translation>查找表</translation>
    </message>
    <message>
        <source>Corrections</source>
        <translation>校正</translation>
    </message>
    <message>
        <source>DPC:</source>
        <translation>DPC:</translation>
    </message>
    <message>
        <source>DPC threshold</source>
        <translation>DPC 阈值</translation>
    </message>
    <message>
        <source>HPC:</source>
        <translation>HPC:</translation>
    </message>
    <message>
        <source>HPC threshold</source>
        <translation>HPC 阈值</translation>
    </message>
    <message>
        <source>Image Flip</source>
        <translation>图像翻转</translation>
    </message>
    <message>
        <source>H.Mirror</source>
        <translation>水平镜像</translation>
    </message>
    <message>
        <source>V.Mirror</source>
        <translation>垂直镜像</translation>
    </message>
    <message>
        <source>Test Mode</source>
        <translation>测试模式</translation>
    </message>
    <message>
        <source>Test Pattern:</source>
        <translation>测试图案:</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigPulseDialog</name>
    <message>
        <source>Pulse Control</source>
        <translation>脉冲控制</translation>
    </message>
    <message>
        <source>Internal Pulse Generator</source>
        <translation>内部脉冲发生器</translation>
    </message>
    <message>
        <source>Granularity:</source>
        <translation>粒度:</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>周期</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>延迟</translation>
    </message>
    <message>
        <source>Freq. [Hz]:</source>
        <translation>频率 [Hz]:</translation>
    </message>
    <message>
        <source>Process</source>
        <translation>运行</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>启动</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S, Ctrl+Shift+S</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>Ctrl+Shift+S, Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>Number of Pulses</source>
        <translation>脉冲数</translation>
    </message>
    <message>
        <source>Continious</source>
        <translation>连续</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigStrobeDialog</name>
    <message>
        <source>Strobe Control</source>
        <translation>频闪控制</translation>
    </message>
    <message>
        <source>Strobe 1</source>
        <translation>频闪 1</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>模式:</translation>
    </message>
    <message>
        <source>Reference:</source>
        <translation>参考:</translation>
    </message>
    <message>
        <source>Strobe 2</source>
        <translation>频闪 2</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Out1:</source>
        <translation>输出 1:</translation>
    </message>
    <message>
        <source>Out1 polarity</source>
        <translation>输出 1 的极性</translation>
    </message>
    <message>
        <source>Out1 selector</source>
        <translation>输出 1 的信号源</translation>
    </message>
    <message>
        <source>Out2:</source>
        <translation>输出 2:</translation>
    </message>
    <message>
        <source>Out2 polarity</source>
        <translation>输出 2 的极性</translation>
    </message>
    <message>
        <source>Out2 selector</source>
        <translation>输出 2 的信号源</translation>
    </message>
    <message>
        <source>Delay [%1s]:</source>
        <translation>延迟 [%1s]:</translation>
    </message>
    <message>
        <source>Width [%1s]:</source>
        <translation>宽度 [%1s]:</translation>
    </message>
</context>
<context>
    <name>MoxCamConfigTriggerDialog</name>
    <message>
        <source>Trigger Control</source>
        <translation>触发控制</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Trigger Source:</source>
        <translation>触发源:</translation>
    </message>
    <message>
        <source>Edge:</source>
        <translation>边沿:</translation>
    </message>
    <message>
        <source>Debounce:</source>
        <translation>去抖:</translation>
    </message>
    <message>
        <source>Software
Trigger</source>
        <translation>软件
触发</translation>
    </message>
</context>
<context>
    <name>MoxCameraActionDialog</name>
    <message>
        <source>Action Command</source>
        <translation>动作命令</translation>
    </message>
    <message>
        <source>Interfaces</source>
        <translation>接口</translation>
    </message>
    <message>
        <source>Action command</source>
        <translation>动作命令</translation>
    </message>
    <message>
        <source>Device key</source>
        <translation>设备密钥</translation>
    </message>
    <message>
        <source>Group key</source>
        <translation>组密钥</translation>
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
        <translation>请求应答</translation>
    </message>
    <message>
        <source>0x7</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>0x7</translation>
    </message>
    <message>
        <source>Group mask</source>
        <translation>组掩码</translation>
    </message>
    <message>
        <source>Scheduled</source>
        <translation>定时执行</translation>
    </message>
    <message>
        <source>0xFFFFFFFF</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>0xFFFFFFFF</translation>
    </message>
    <message>
        <source>Scheduled time</source>
        <translation>执行时间</translation>
    </message>
    <message>
        <source>999999999999999999</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>999999999999999999</translation>
    </message>
    <message>
        <source>Count of waiting acknowledgements</source>
        <translation>等待的应答数</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>Acknowledgements</source>
        <translation>应答</translation>
    </message>
</context>
<context>
    <name>MoxCameraSelectorDialog</name>
    <message>
        <source>Select camera</source>
        <translation>选择相机</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>&amp;Interface info</source>
        <translation>接口信息(&amp;I)</translation>
    </message>
    <message>
        <source>Interface info</source>
        <translation>接口信息</translation>
    </message>
    <message>
        <source>&amp;Device info</source>
        <translation>设备信息(&amp;D)</translation>
    </message>
    <message>
        <source>Device info</source>
        <translation>设备信息</translation>
    </message>
    <message>
        <source>Set IP Address</source>
        <translation>设置 IP 地址</translation>
    </message>
    <message>
        <source>Polling</source>
        <translation>轮询</translation>
    </message>
</context>
<context>
    <name>MoxGui::MoxCamConfig</name>
    <message>
        <source>Select a device</source>
        <translation>选择设备</translation>
    </message>
</context>
<context>
    <name>MoxGui::MoxCameraSelectorDialog</name>
    <message>
        <source>&amp;Rescan</source>
        <translation>重新扫描(&amp;R)</translation>
    </message>
    <message>
        <source>Set IP Address</source>
        <translation>设置 IP 地址</translation>
    </message>
    <message>
        <source>Connect by IP Address</source>
        <translation>通过 IP 地址连接</translation>
    </message>
    <message>
        <source>Can&apos;t set IP address</source>
        <translation>无法设置 IP 地址</translation>
    </message>
    <message>
        <source>Can&apos;t connect by IP address</source>
        <translation>无法通过 IP 地址连接</translation>
    </message>
</context>
<context>
    <name>QtMoxSpinBox</name>
    <message>
        <source>Opens a slider</source>
        <translation>打开滑块</translation>
    </message>
</context>
<context>
    <name>SetIpDialog</name>
    <message>
        <source>Set IP Address</source>
        <translation>设置 IP 地址</translation>
    </message>
    <message>
        <source>Network Adapter IP Configuration</source>
        <translation>网络适配器 IP 配置</translation>
    </message>
    <message>
        <source>MAC Address        </source>
        <translation>MAC 地址        </translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP 地址</translation>
    </message>
    <message>
        <source>Subnet Mask</source>
        <translation>子网掩码</translation>
    </message>
    <message>
        <source>Camera IP Configuration</source>
        <translation>相机 IP 配置</translation>
    </message>
    <message>
        <source>IP &amp;Address</source>
        <translation>IP 地址(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Subnet Mask</source>
        <translation>子网掩码(&amp;S)</translation>
    </message>
    <message>
        <source>Default &amp;Gateway</source>
        <translation>默认网关(&amp;G)</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <extracomment>As it stands in every language.</extracomment>
        <translation>TextLabel</translation>
    </message>
</context>
</TS>
