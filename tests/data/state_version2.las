{
  "layerStateFile": 2,
  "name": "Facade",
  "description": "as painted",
  "restores": ["color"],
  "currentLayer": "Base",
  "savedWithViewport": false,
  "layers": [
    {"name":"Base","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":[0,60,140],"colorName":"Signal Blue","colorBook":"House Paints","linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"},
    {"name":"A-WALL","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":[128,64,32],"colorName":"Süßholz","linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"},
    {"name":"A-DOOR","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":[0,60,140],"colorBook":"House Paints","linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"},
    {"name":"A-ROOF","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":5,"linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"}
  ]
}
