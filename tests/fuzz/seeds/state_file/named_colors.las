{
  "layerStateFile": 2,
  "name": "Facade",
  "description": "",
  "restores": ["color"],
  "savedWithViewport": false,
  "layers": [
    {"name":"Base","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":[0,60,140],"colorName":"Signal Blue","colorBook":"House Paints","linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"},
    {"name":"Walls","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":[0,60,140],"colorName":"SIGNAL BLUE","linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"},
    {"name":"Doors","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":[0,60,140],"colorBook":"House Paints","linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"}
  ]
}
